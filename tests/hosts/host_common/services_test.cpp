// SPDX-License-Identifier: GPL-2.0-or-later
// The smaller services: clock, registry, shell, unique values.
#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "frame/guard.h"
#include "hosts/common/clock.h"
#include "hosts/common/registry.h"
#include "hosts/common/shell.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::host {
namespace {

TEST(Clock, ReadsTimesAndRefusesOthers) {
  EXPECT_TRUE(ParseIsoTime("2026-11-16T14:15:07"));
  EXPECT_EQ(ParseIsoTime("2024-02-29 08:30")->minute, 30);
  for (const char* text : {"", "2026-11-16", "2026-02-29T00:00:00", "2026-11-16T24:00:00",
                           "2026-11-16T14:15:07Z", "26-11-16T14:15:07", "2026-11-16T14:15:"}) {
    EXPECT_FALSE(ParseIsoTime(text)) << text;
  }
}

TEST(Clock, IsFixedByTheEnvironmentOrByHand) {
  ::setenv("BRELMON_NOW", "2026-11-16T14:15:07", 1);
  HostClock clock;
  ::unsetenv("BRELMON_NOW");
  EXPECT_EQ(ToCivil(clock.Now()).second, 7);
  clock.Fix(CivilTime{2000, 1, 2, 3, 4, 5});
  EXPECT_EQ(clock.Now(), ToDate({2000, 1, 2, 3, 4, 5}));
  clock.Fix({});
  EXPECT_GT(clock.Now().Serial, 46000);  // goes again, long after 2025
}

TEST(Registry, KeepsValuesByRootKeyAndName) {
  const auto registry = NewMemoryRegistry();
  Value value;
  registry->Write(RegistryRoot::ClassesRoot, u"A.b\\CLSID", u"", u"{1}");
  EXPECT_TRUE(registry->Query(RegistryRoot::ClassesRoot, u"a.B\\clsid", u"", value));
  EXPECT_EQ(value.ToText(), u"{1}");
  EXPECT_FALSE(registry->Query(RegistryRoot::CurrentUser, u"A.b\\CLSID", u"", value));
  registry->Write(RegistryRoot::ClassesRoot, u"A.bc", u"", u"other");
  registry->DeleteTree(RegistryRoot::ClassesRoot, u"A.B");
  EXPECT_FALSE(registry->Query(RegistryRoot::ClassesRoot, u"A.b\\CLSID", u"", value));
  EXPECT_TRUE(registry->Query(RegistryRoot::ClassesRoot, u"A.bc", u"", value));
}

class ShellTest : public testing::Test {
 protected:
  ShellTest() {
    const std::string opener = folder.Write(
        "opener", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.tmp\"\nmv \"$0.tmp\" \"$0.log\"\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    ::setenv("BRELMON_OPENER", opener.c_str(), 1);
  }
  ~ShellTest() override { ::unsetenv("BRELMON_OPENER"); }
  /// What the opener was given; waits for it.
  std::string Opened(const Text& file, const Text& directory) {
    const std::string log = folder.Path("opener.log");
    std::filesystem::remove(log);
    NewShell()->Execute(file, directory, 1);
    for (int i = 0; i < 500 && !std::filesystem::exists(log); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return BytesOf(log);
  }
  TempFolder folder;
};

TEST_F(ShellTest, HandsOverSystemPathsAndAddressesAsTheyAre) {
  folder.Write("docs/a b;$(x).pdf", "");
  const Text directory = Paths().ToWindows(folder.Path());
  const std::string due = folder.Path("docs/a b;$(x).pdf") + "|" + folder.Path() + "|";
  EXPECT_EQ(Opened(directory + u"\\docs\\a b;$(x).pdf", directory), due);
  EXPECT_EQ(Opened(u"docs\\A B;$(x).pdf", directory + u"\\"), due);
  folder.Write("docs/ä b.html", "");
  EXPECT_EQ(Opened(u"file:///Z:" + FromUtf8(folder.Path("docs/%C3%a4%20b.html")), u""),
            folder.Path("docs/ä b.html") + "||");
  EXPECT_EQ(Opened(u"https://example.org/a?b=c&d", u""), "https://example.org/a?b=c&d||");
  EXPECT_EQ(Opened(u"example.org/page.html", u""), "http://example.org/page.html||");
  EXPECT_EQ(Opened(u"localhost:80/x:y", u""), "http://localhost:80/x:y||");
}

TEST_F(ShellTest, OpensTheAddressOfAShortcutAndNothingElse) {
  const Text directory = Paths().ToWindows(folder.Path());
  folder.Write("a.URL", "[InternetShortcut]\r\nurl=https://example.org/?a=b\r\n");
  EXPECT_EQ(Opened(u"a.URL", directory), "https://example.org/?a=b|" + folder.Path() + "|");
  for (const char* line : {"URL=file:///bin/sh", "URL=/bin/sh", "", "URL=--help"}) {
    folder.Write("a.URL", line);
    EXPECT_EQ(Guard::Ignore([&] { NewShell()->Execute(u"a.URL", directory, 1); }),
              failure::kRefused);
  }
}

TEST_F(ShellTest, AFileUrlIsHeldToWhatHoldsForPaths) {
  for (const TextView url : {u"file:///Z:/bin/sh", u"file:///Z:/a%00.html", u"file:///Z:/a%zz.html",
                             u"file:///etc/a.html", u"file://server/a.html"}) {
    EXPECT_EQ(Guard::Ignore([&] { NewShell()->Execute(Text(url), u"", 1); }), failure::kRefused)
        << ToUtf8(url);
  }
}

TEST_F(ShellTest, ProgramsReadNothingAndWorkInTheDirectory) {
  folder.Write("opener", "#!/bin/sh\n(cat; pwd) > \"$0.tmp\"\nmv \"$0.tmp\" \"$0.log\"\n");
  std::filesystem::create_directory(folder.Path("docs"));
  EXPECT_EQ(Opened(u"a.pdf", Paths().ToWindows(folder.Path("docs"))), folder.Path("docs") + "\n");
}

TEST_F(ShellTest, ComplainsWhereNothingOpens) {
  for (const int status : {0, 3}) {
    folder.Write("opener", "#!/bin/sh\nexit " + std::to_string(status) + "\n");
    std::unique_ptr<Opening> opening;
    NewShell([&](auto started) {
      opening = std::move(started);
    })->Execute(u"https://example.org/", u"", 1);
    ASSERT_TRUE(opening->EndsWithin(10000));
    EXPECT_EQ(opening->Complaint().starts_with(u"https://example.org/ was not opened. "),
              status != 0);
  }
}

TEST_F(ShellTest, RunsProgramsOrFails) {
  const auto shell = NewShell();
  folder.Write("plain.txt", "");
  const auto number = [&](const Text& program) {
    return Guard::Ignore([&] { shell->Run(program); });
  };
  EXPECT_EQ(number(u"Z:\\bin\\true"), 0);
  EXPECT_EQ(number(u"Z:\\no\\such\\program"), 53);
  EXPECT_EQ(number(Paths().ToWindows(folder.Path("plain.txt"))), 5);
}

}  // namespace
}  // namespace brelmon::host
