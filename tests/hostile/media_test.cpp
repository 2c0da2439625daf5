// SPDX-License-Identifier: GPL-2.0-or-later
// What a module would have the desktop run.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/hostile/hostilemodule.h"
#include "tests/hostile/supervisor.h"

namespace brelmon::hostile {
namespace {

namespace fs = std::filesystem;

struct Medium {
  const char* name;
  std::string line, reason;  // no reason: it is opened
};

std::vector<Medium> Media() {
  const std::string ending = "files of that ending are not opened";
  return {
      {"Guide", "a:docs/guide.pdf,6", ""},
      {"Address", "a:https\xDF//127.0.0.1/x,3", ""},
      {"Starter", "a:evil.desktop,5", ending},
      {"StarterByAnotherKind", "a:evil.desktop,9", ending},
      {"StarterBehindALink", "a:lesson.pdf,6", "it is a link to something else"},
      {"Script", "a:evil.sh,1", ending},
      {"NoEnding", "a:evil,1", ending},
      {"EndingWithABlank", "a:evil.desktop ,1", ending},
      {"Library", "a:data/probe.so,1", ending},
      {"Dash", "a:-x.pdf,6", "its name begins with a dash"},
      {"Folder", "a:docs.pdf,6", "it is no regular file"},
      {"FileAddress", "a:file\xDF//server/x.desktop,3", "\"file:\" are not opened"},
      {"Share", "a:smb\xDF//server/x,3", "\"smb:\" are not opened"},
      {"Script address",
       "a:javascript\xDF"
       "alert(1),3",
       "\"javascript:\" are not opened"},
      {"Shortcut", "a:evil.url,3", "names no web page"},
  };
}

class MediaTest : public testing::TestWithParam<Medium> {};

TEST_P(MediaTest, IsOpenedOnlyIfAClassLooksAtIt) {
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp");
  for (const char* file :
       {"evil.desktop", "evil.desktop ", "evil.sh", "evil", "-x.pdf", "docs/guide.pdf"}) {
    fs::permissions(module.Write(file, "#!/bin/sh\n"), fs::perms::owner_all);
  }
  module.Write("evil.url", "[InternetShortcut]\r\nURL=file:///bin/true\r\n");
  fs::create_directory(module.Path("docs.pdf"));
  fs::create_symlink("evil.desktop", module.Path("lesson.pdf"));
  module.Write("media_list.txt", GetParam().line + "\r\n");
  const Watched watched = Supervise({"/usr/bin/env", "BRELMON_OPENER=/bin/true", BRELMON_PROGRAM,
                                     module.Path(), "media", "open", "1", "--open"},
                                    module.Path());
  const bool due = GetParam().reason.empty();
  const auto started = std::count(watched.deeds.begin(), watched.deeds.end(), "exec /bin/true");
  EXPECT_EQ(started, due ? 1 : 0);
  EXPECT_EQ(watched.out.find("opened:") != std::string::npos, due) << watched.out;
  EXPECT_EQ(watched.status, due ? 0 : 1) << watched.err;
  EXPECT_NE(watched.err.find(GetParam().reason), std::string::npos) << watched.out << watched.err;
  const Watched check = Supervise({BRELMON_PROGRAM, module.Path(), "check"}, module.Path());
  EXPECT_EQ(check.out.find("media_list.txt:1: ") == std::string::npos, due) << check.out;
}

INSTANTIATE_TEST_SUITE_P(Hostile, MediaTest, testing::ValuesIn(Media()), [](const auto& row) {
  std::string name = row.param.name;
  std::erase(name, ' ');
  return name;
});

TEST(Media, AProgramThatCantBeStartedOpenedNothing) {
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp");
  module.Write("docs/guide.pdf", "");
  module.Write("media_list.txt", "a:docs/guide.pdf,6\r\n");
  const Watched watched =
      Supervise({"/usr/bin/env", "BRELMON_OPENER=/no/such/program", BRELMON_PROGRAM, module.Path(),
                 "media", "open", "1", "--open"},
                module.Path());
  EXPECT_EQ(watched.status, 1);
  EXPECT_EQ(watched.out, "");
  EXPECT_NE(watched.err.find("can't be started"), std::string::npos) << watched.err;
}

}  // namespace
}  // namespace brelmon::hostile
