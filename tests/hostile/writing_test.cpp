// SPDX-License-Identifier: GPL-2.0-or-later
// What is written is written whole, and into the module alone.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "cli/signals.h"
#include "hosts/columns/unfinished.h"
#include "hosts/common/filesystem.h"
#include "tests/hostile/hostilemodule.h"
#include "tests/hostile/supervisor.h"

namespace brelmon::hostile {
namespace {

namespace fs = std::filesystem;

constexpr const char* kRecord = "quickload add-query q \"mag > 5\" --yes\n";

std::size_t Records(const HostileModule& module) {
  const std::string text = BytesOf(module.Path("QuickLoad.txt"));
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find("mag > 5", at)) != std::string::npos; ++at) ++count;
  return count;
}

TEST(QuickLoad, ProgramsThatAddAtOnceLoseNothing) {
  constexpr int kPrograms = 4, kEach = 25;
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp");
  std::string lines = "pick it\n";
  for (int i = 0; i < kEach; ++i) lines += kRecord;
  module.Write("lines", lines);
  const std::string one = std::string(BRELMON_PROGRAM) + " map.qgs < lines & ";
  std::string all;
  for (int i = 0; i < kPrograms; ++i) all += one;
  const Watched watched = Supervise({"/bin/bash", "-c", all + "wait"}, module.Path());
  EXPECT_EQ(Records(module), std::size_t{kPrograms * kEach}) << watched.out << watched.err;
  const Watched listed =
      Supervise({BRELMON_PROGRAM, module.Path(), "quickload", "list"}, module.Path());
  // A line of headings and one of the data frame stand before them.
  EXPECT_EQ(std::count(listed.out.begin(), listed.out.end(), '\n'), 2 + kPrograms * kEach)
      << listed.out.substr(0, 500) << listed.err;
}

TEST(QuickLoad, WhoAddsWaitsForARewrite) {
  const HostileModule module;
  const std::string list = module.Write("QuickLoad.txt", "old\r\n");
  const host::Paths paths;
  const auto files = host::NewFileSystem();
  const auto anew = files->Open(paths.ToWindows(list), FileMode::Output);
  const pid_t child = ::fork();
  if (child == 0) {
    const auto adding = host::NewFileSystem()->Open(paths.ToWindows(list), FileMode::Append);
    adding->Write("added\r\n");
    adding->Close();
    ::_exit(0);
  }
  for (int i = 0; i < 1000; ++i) anew->Write("kept\r\n");
  anew->Close();
  ::waitpid(child, nullptr, 0);
  const std::string whole = BytesOf(list);
  EXPECT_EQ(whole.size(), 1000 * 6 + 7u);
  EXPECT_TRUE(whole.ends_with("kept\r\nadded\r\n"));
}

TEST(QuickLoad, ARecordThatDoesNotFitIsTakenBack) {
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp");
  const std::string before(1020, '\n');
  module.Write("QuickLoad.txt", before);
  module.Write("lines", std::string("pick it\n") + kRecord);
  const Watched watched =
      Supervise({"/bin/bash", "-c",
                 "trap '' XFSZ; ulimit -f 1; exec " + std::string(BRELMON_PROGRAM) +
                     " map.qgs < lines > /dev/null"},
                module.Path());
  EXPECT_EQ(watched.status, 1) << watched.err;
  EXPECT_EQ(BytesOf(module.Path("QuickLoad.txt")), before);
}

TEST(QuickLoad, IsNotWrittenThroughALink) {
  const HostileModule module, other;
  module.Layer("ogr", "./data/quakes.shp");
  other.Write("theirs.txt", "theirs\r\n\xEF\xBB\xBF\n");
  fs::create_symlink(other.Path("theirs.txt"), module.Path("QuickLoad.txt"));
  const Watched watched = Supervise({BRELMON_PROGRAM, module.Path()}, module.Path(),
                                    std::string("pick it\n") + kRecord + "check --fix\n");
  for (const std::string& deed : watched.deeds) ADD_FAILURE() << deed;
  EXPECT_EQ(watched.status, 1) << watched.err;
  EXPECT_EQ(BytesOf(other.Path("theirs.txt")), "theirs\r\n\xEF\xBB\xBF\n");
}

/// At each of the calls that write the list anew.
TEST(QuickLoad, ARewriteThatIsKilledIsToldByTheNextCheck) {
  const std::string record = "<Query>\r\nq\r\nmag > 5\r\n";
  for (int writes = 0; writes <= 4; ++writes) {
    const HostileModule module;
    module.Layer("ogr", "./data/quakes.shp");
    const std::string list = module.Write("QuickLoad.txt", record + record + record);
    const pid_t child = ::fork();
    if (child == 0) {
      const host::Paths paths;
      const auto files = host::NewFileSystem();
      const auto stream = files->Open(paths.ToWindows(list), FileMode::Output);
      for (int i = 0; i < writes; ++i) stream->Write(i == 0 ? "<Query>\r\n" : "q\r\n");
      ::raise(SIGKILL);
    }
    ::waitpid(child, nullptr, 0);
    const Watched checked = Supervise({BRELMON_PROGRAM, module.Path(), "check"}, module.Path());
    EXPECT_EQ(checked.status, 1) << checked.out;
    const std::string due = "QuickLoad.txt:" + std::to_string(writes + 1) +
                            ": a program that wrote the file anew was stopped";
    EXPECT_NE(checked.out.find(due), std::string::npos) << writes << checked.out;
  }
}

/// What a killed run left is gone at the next, what a living one writes stays, and a link that lies
/// in the way is not followed.
TEST(Dissolve, LeavesNothingUnfinishedBehind) {
  const HostileModule module, other;
  module.Layer("ogr", "./data/quakes.shp");
  const std::string living = module.Write("other~making" + std::to_string(::getpid()) + ".dbf", "");
  const std::string left = module.Write("sum~making99999999.dbf", "half");
  other.Write("theirs.txt", "theirs");
  for (int number = 1; number < 1000; ++number) {
    const std::string name = module.Path("sum~making" + std::to_string(number) + ".dbf");
    if (::kill(number, 0) != 0) fs::create_symlink(other.Path("theirs.txt"), name);
  }
  const Watched watched = Supervise({BRELMON_PROGRAM, module.Path(), "--yes", "summarize", "it",
                                     "mag", "--all", "--output", module.Path("sum.dbf")},
                                    module.Path());
  EXPECT_EQ(watched.status, 0) << watched.out << watched.err;
  EXPECT_TRUE(fs::exists(module.Path("sum.dbf")));
  EXPECT_TRUE(fs::exists(living));
  EXPECT_FALSE(fs::exists(left));
  EXPECT_EQ(BytesOf(other.Path("theirs.txt")), "theirs");
}

TEST(Dissolve, IsUndoneBySignals) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const HostileModule module;
    const std::string making = module.Write("sum~making1.dbf", "half");
    const pid_t child = ::fork();
    if (child == 0) {
      cli::EndCleanlyAtSignals();
      columns::Unfinished::Keep(making);
      ::raise(number);
      ::_exit(0);
    }
    int state = 0;
    ::waitpid(child, &state, 0);
    EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == number);
    EXPECT_FALSE(fs::exists(making));
  }
}

}  // namespace
}  // namespace brelmon::hostile
