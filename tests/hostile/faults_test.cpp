// SPDX-License-Identifier: GPL-2.0-or-later
// A disk that fails: at each read, write and close in turn. No action says that it is done when it
// isn't, and each file is as it was or as it should be.
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>

#include "tests/hostile/hostilemodule.h"
#include "tests/hostile/supervisor.h"

namespace brelmon::hostile {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

struct Action {
  const char* name;
  std::vector<std::string> words;
  const char* input = "";
};
const Action kActions[] = {
    {"statistics", {"statistics", "it", "mag", "--all"}},
    {"query", {"query", "it", "mag > 5", "--new"}},
    {"summarize", {"summarize", "it", "mag", "--all", "--output", "sum.dbf"}},
    {"add-query", {}, "pick it\nquickload add-query q \"mag > 5\"\n"},
    {"check", {"check"}},
};

struct Breaking {
  const char* name;
  long call;
  int error;  // none: less is read than was asked for
};
const Breaking kBreakings[] = {
    {"write ENOSPC", SYS_write, ENOSPC},   {"pwrite64 ENOSPC", SYS_pwrite64, ENOSPC},
    {"writev ENOSPC", SYS_writev, ENOSPC}, {"close EIO", SYS_close, EIO},
    {"ftruncate EIO", SYS_ftruncate, EIO}, {"fsync EIO", SYS_fsync, EIO},
    {"read EIO", SYS_read, EIO},           {"pread64 EIO", SYS_pread64, EIO},
    {"readv EIO", SYS_readv, EIO},         {"read short", SYS_read, 0},
    {"pread64 short", SYS_pread64, 0},
};

struct Outcome {
  Watched watched;
  Files before, after;
};

Files FilesIn(const HostileModule& module) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(module.Path())) {
    if (entry.is_regular_file()) {
      files[fs::relative(entry.path(), module.Path()).string()] = BytesOf(entry.path().string());
    }
  }
  return files;
}

Outcome RunWith(const Action& action, Fault& fault) {
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp");
  module.Write("QuickLoad.txt", "<Query>\r\nfirst\r\nmag > 6\r\n");
  std::vector<std::string> words{BRELMON_PROGRAM, "--yes", "--now", "2026-11-16T10:00:00", "."};
  words.insert(words.end(), action.words.begin(), action.words.end());
  Outcome run;
  run.before = FilesIn(module);
  run.watched = Supervise(words, module.Path(), action.input, &fault);
  run.after = FilesIn(module);
  for (std::size_t at = 0; (at = run.watched.out.find(module.Path())) != std::string::npos;) {
    run.watched.out.replace(at, module.Path().size(), "MODULE");
  }
  return run;
}

/// Whether each file is the one before or the one that the whole action leaves.
std::string Half(const Outcome& run, const Outcome& whole) {
  for (const auto& [name, bytes] : run.after) {
    const auto old = run.before.find(name), due = whole.after.find(name);
    const bool known = (old != run.before.end() && old->second == bytes) ||
                       (due != whole.after.end() && due->second == bytes);
    if (!known) return name + " is left half-written";
  }
  for (const auto& [name, bytes] : run.before) {
    if (run.after.count(name) == 0) return name + " is gone";
  }
  return {};
}

/// In BRELMON_FAULTS: how many places at most each call fails at.
int MostPlaces() {
  const char* told = std::getenv("BRELMON_FAULTS");
  return told ? std::max(std::atoi(told), 1) : 1;
}

class Faults : public testing::Test {
 protected:
  /// Some places at which the call is made, from the first on.
  void Inject(const Action& action, const Breaking& breaking) {
    Fault none{breaking.call, 1 << 30, breaking.error};
    const Outcome whole = RunWith(action, none);
    ASSERT_EQ(whole.watched.status, 0) << action.name << whole.watched.err;
    const int places = std::min(none.seen, MostPlaces());
    for (int i = 0; i < places; ++i) {
      const int nth = 1 + static_cast<int>(std::int64_t{i} * none.seen / places);
      for (const bool once : {false, true}) {
        SCOPED_TRACE(std::string(action.name) + ": " + breaking.name + " at " +
                     std::to_string(nth) + " of " + std::to_string(none.seen) +
                     (once ? " once" : ""));
        Fault fault{breaking.call, nth, breaking.error, once};
        Judge(RunWith(action, fault), whole, breaking.error != 0);
      }
    }
  }

  int injected_ = 0, ended_ = 0;

 private:
  void Judge(const Outcome& run, const Outcome& whole, bool mayEnd) {
    ++injected_;
    EXPECT_LT(run.watched.status, 128);
    EXPECT_EQ(Half(run, whole), "");
    if (run.watched.status == 0) {
      EXPECT_EQ(run.watched.out, whole.watched.out);
      EXPECT_TRUE(run.after == whole.after) << "it said that it was done";
    } else {
      ++ended_;
      EXPECT_TRUE(mayEnd) << "less at once is no failure: " << run.watched.err;
      EXPECT_NE(run.watched.out + run.watched.err, "");
    }
  }
};

TEST_F(Faults, AreToldAndLeaveNothingHalfWritten) {
  if (!CanInject()) GTEST_SKIP() << "this processor's registers are not known";
  for (const Action& action : kActions) {
    for (const Breaking& breaking : kBreakings) Inject(action, breaking);
  }
  std::printf("%d faults, of which %d ended the action\n", injected_, ended_);
}

}  // namespace
}  // namespace brelmon::hostile
