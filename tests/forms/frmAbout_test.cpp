// SPDX-License-Identifier: GPL-2.0-or-later
#include "forms/frmAbout.h"

#include <gtest/gtest.h>

#include "forms/aboutpages.h"
#include "forms/cmdAbout.h"
#include "frame/commandtable.h"
#include "frame/configuration.h"
#include "frame/errorhandling.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

constexpr const char16_t* kPathKey = u"LM\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO\\PATH";
constexpr const char16_t* kFolderKey = u"LM\\SOFTWARE\\Microsoft\\Shared Tools Location\\MSINFO";

TEST(About, TheCommandShowsVersionTextAndCaption) {
  FakeWorld world;
  std::vector<Text> shown;
  world.users[u"frmAbout"] = [&](Form& form) {
    auto& about = dynamic_cast<frmAbout&>(form);
    shown = {about.Caption(), about.lblVersion.Caption()};
    for (const auto& run : about.rtfAbout.Runs()) {
      if (run.Font.Bold) shown.push_back(run.Text);
    }
    about.UserEscape();
  };
  cmdAbout command;
  command.OnCreate(world.application);
  command.OnClick();
  EXPECT_EQ(shown, (std::vector<Text>{u"About BRELMON GIS Tools", u"Version 1.9.59",
                                      u"Investigating relevant problems:\r\n",
                                      u"Interpreting meaningful patterns:\r\n",
                                      u"Thinking scientifically:\r\n"}));
}

TEST(About, LinksTurnRedUnderTheMouseAndOpenPages) {
  FakeWorld world;
  const auto about = New<frmAbout>();
  about->lblWebSite.UserMouseMove();
  EXPECT_EQ(about->lblWebSite.ForeColor(), 255);
  about->UserMouseMove();
  EXPECT_EQ(about->lblWebSite.ForeColor(), 0xFF0000);
  about->lblWebSite.UserClick();
  about->picMakerLogo.UserClick();
  about->lblSponsor2.UserClick();
  ASSERT_EQ(world.executed.size(), 3u);
  EXPECT_EQ(world.executed[0].file, PageAddress(configuration::kMakerPage));
  EXPECT_EQ(world.executed[1].file, world.executed[0].file);
  EXPECT_EQ(world.executed[2].file, PageAddress(configuration::kSponsorPage));
}

TEST(About, PagesAreAddressesOrDocumentsOfTheComponentsOwnInstallation) {
  FakeWorld world;
  EXPECT_EQ(PageAddress(u"a.html"), u"");
  world.registry[u"CR\\CLSID\\" + ToText(CommandNamed(u"cmdAbout").ClassId) +
                 u"\\InprocServer32\\"] = u"Z:\\own place\\lib\\x\\tools\\component.so";
  const Text documents = PageAddress(u"docs/ä #1.html");
  EXPECT_TRUE(documents.starts_with(u"file:///Z:/own%20place/")) << ToUtf8(documents);
  EXPECT_TRUE(documents.ends_with(u"/docs/%C3%A4%20%231.html")) << ToUtf8(documents);
  EXPECT_EQ(PageAddress(u"https://example.org/?a=b"), u"https://example.org/?a=b");
  EXPECT_EQ(PageAddress(u""), u"");
  EXPECT_EQ(FileUrl(u"Z:\\a\\.\\b\\..\\..\\..\\c/d"), u"file:///Z:/c/d");
}

TEST(About, SystemInformationFollowsTheRegistry) {
  FakeWorld world;
  const auto about = New<frmAbout>();
  about->cmdSysInfo.UserClick();
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(world.boxes[0].text, u"System Information Is Unavailable At This Time");
  EXPECT_EQ(world.boxes[0].style, 0);

  world.registry[kFolderKey] = Value(Text(u"C:\\Info\0", 8));
  about->cmdSysInfo.UserClick();  // the program isn't there
  EXPECT_EQ(world.boxes.size(), 2u);
  world.files[u"C:\\Info\\MSINFO32.EXE"] = "";
  about->cmdSysInfo.UserClick();
  world.registry[kPathKey] = u"C:\\tool.exe";
  about->cmdSysInfo.UserClick();
  EXPECT_EQ(world.ran, (std::vector<Text>{u"C:\\Info\\MSINFO32.EXE", u"C:\\tool.exe"}));

  world.registry[kPathKey] = Text(1025, u'x');  // too long: on to the folder
  about->cmdSysInfo.UserClick();
  EXPECT_EQ(world.ran.back(), u"C:\\Info\\MSINFO32.EXE");

  world.registry[kPathKey] = u"";  // counts as found, and can't be run
  about->cmdSysInfo.UserClick();
  EXPECT_EQ(world.trails.size(), 1u);
}

}  // namespace
}  // namespace brelmon
