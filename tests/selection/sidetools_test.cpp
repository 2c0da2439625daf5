// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog's ways out: table, statistics, saved queries.
#include "quickload/brelmon_quickjumpdialog.h"
#include "statistics/brelmon_themeiddialog.h"
#include "statistics/frmReport_modal.h"
#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using SideTools = QueryDialogTest;

TEST_F(SideTools, StatisticsOpenOnTheLayerAlone) {
  std::string offered;
  world.users[u"brelmon_ThemeIDDialog"] = [&](Form& form) {
    offered = Rows(static_cast<brelmon_ThemeIDDialog&>(form).lbxTheme);
    form.UserEscape();
  };
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) { dialog.cmdOpenStats.UserClick(); });
  EXPECT_EQ(offered, "Towns");
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SideTools, ASavedQueryReplacesTheText) {
  world.files[u"C:\\Module\\QuickLoad.txt"] =
      "<Query>\r\nBig\r\nPOP > 5\r\n<Layer>\r\nL\r\nl.qlr\r\n<Query>\r\nSmall\r\nPOP < 5\r\n";
  bool ok = true;
  world.users[u"brelmon_QuickJumpDialog"] = [&](Form& form) {
    auto& jump = static_cast<brelmon_QuickJumpDialog&>(form);
    EXPECT_EQ(Rows(jump.lbxList), "Big; Small");
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

}  // namespace
}  // namespace brelmon::test
