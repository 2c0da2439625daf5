// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog's ways out: table, statistics, saved queries.
#include "quickload/brelmon_quickjumpdialog.h"
#include "statistics/brelmon_themeiddialog.h"
#include "statistics/frmReport_modal.h"
#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using SideTools = QueryDialogTest;

TEST_F(SideTools, TheTableOpensOnce) {
  for (const Ref<IObject>& item : {Ref<IObject>(towns), Ref<IObject>(visits)}) {
    world.tableWindows.clear();
    OpenOn(item, [](brelmon_ModQueryDialog& dialog) {
      dialog.cmdOpenTable.UserClick();
      dialog.cmdOpenTable.UserClick();
    });
    std::size_t bound = 0;
    for (const auto& window : world.tableWindows) bound += Same(window->item, item) ? 1 : 0;
    EXPECT_EQ(bound, 1u);
  }
}

TEST_F(SideTools, StatisticsKeepTheirSettingsAndDifferFromTheToolbars) {
  towns->dataSourceType = u"IMS Feature Class";
  towns->selected = {2};  // the one value is the ignored one
  Text report;
  world.users[u"brelmon_ThemeIDDialog"] = [](Form& form) {
    auto& asked = static_cast<brelmon_ThemeIDDialog&>(form);
    EXPECT_EQ(Rows(asked.lbxTheme), "Towns");
    asked.lbxField.UserClick(0);
    asked.chkNoData.SetValue(1);
    asked.txtNoData.UserEdit(u"7", 0, 0);
    asked.cbxDecPlaces.UserChoose(asked.cbxDecPlaces.ListIndex() + 1);
    asked.cmdOK.UserClick();
  };
  world.users[u"frmReport_modal"] = [&](Form& form) {
    report = static_cast<frmReport_modal&>(form).txtReport.Text();
    form.Hide();
  };
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) { dialog.cmdOpenStats.UserClick(); });
  // A source without enclosure is not asked to leave the ignored value out.
  EXPECT_NE(report.find(u"  Number of Records: 1\r\n"), Text::npos);
  EXPECT_NE(report.find(u" --> 7\r\n" + Text(58, u'-') + u"\r\nAnalysis Complete:   "), Text::npos);
  EXPECT_EQ(world.pointer, Pointer::Hourglass);

  std::int32_t places = 0;
  world.users[u"brelmon_ThemeIDDialog"] = [&](Form& form) {
    auto& asked = static_cast<brelmon_ThemeIDDialog&>(form);
    places = asked.cbxDecPlaces.ListIndex();
    asked.cmdCancel.UserClick();
  };
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) { dialog.cmdOpenStats.UserClick(); });
  EXPECT_EQ(places, 3);
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SideTools, ASavedQueryReplacesTheText) {
  world.files[u"C:\\Module\\QuickLoad.txt"] =
      "<Query>\r\nBig\r\nPOP > 5\r\n<Layer>\r\nL\r\nl.qlr\r\n<Query>\r\nSmall\r\nPOP < 5\r\n";
  bool ok = true;
  world.users[u"brelmon_QuickJumpDialog"] = [&](Form& form) {
    auto& jump = static_cast<brelmon_QuickJumpDialog&>(form);
    EXPECT_EQ(Rows(jump.lbxList), "Big; Small");
    EXPECT_TRUE(jump.optQueries.Value());
    EXPECT_FALSE(jump.optViews.Enabled() || jump.optLayers.Enabled() || jump.optExtents.Enabled());
    jump.lbxList.UserClick(1);
    (ok ? jump.cmdOK : jump.cmdCancel).UserClick();
  };
  Open([&](brelmon_ModQueryDialog& dialog) {  // no layer is chosen, and the box is disabled
    dialog.cmdLoadQJQuery.UserClick();
    EXPECT_EQ(ToUtf8(dialog.txtQuery.Text()), "POP < 5");
    ok = false;
    dialog.cmdClearQuery.UserClick();
    dialog.cmdLoadQJQuery.UserClick();
    EXPECT_EQ(ToUtf8(dialog.txtQuery.Text()), "(  )");
  });
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SideTools, WithoutAFileOfQueries) {
  Open([](brelmon_ModQueryDialog& dialog) { dialog.cmdLoadQJQuery.UserClick(); });
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(ToUtf8(world.boxes[0].title), "QuickLoad Editor Cancelled:");
  EXPECT_EQ(ToUtf8(world.boxes[0].text),
            "Unable to find Brelmon 'QuickLoad.txt' file.  File should be located in the same "
            "directory as the ArcGIS MxD file.\r\n\r\nBailing out...");
  EXPECT_EQ(world.boxes[0].style, 64);
}

TEST_F(SideTools, AQueryCutShortIsTold) {
  world.files[u"C:\\Module\\QuickLoad.txt"] = "<Query>\r\nBig\r\n";
  Open([](brelmon_ModQueryDialog& dialog) { dialog.cmdLoadQJQuery.UserClick(); });
  EXPECT_NE(Trails(world).find("cmdLoadQJQuery_Click"), std::string::npos);
  EXPECT_NE(Trails(world).find("\t62\r\n"), std::string::npos);
}

}  // namespace
}  // namespace brelmon::test
