// SPDX-License-Identifier: GPL-2.0-or-later
// The run: what the dissolve is asked, what becomes of its table, and what refuses it.
#include "tests/summarize/summaryworld.h"

namespace brelmon::test {
namespace {

using Dialog = frm_Brelmon_Summarize;
using SummarizeRun = SummarizeTest;

void Tick(Dialog& dialog, std::initializer_list<const char16_t*> keys) {
  for (const char16_t* key : keys) {
    dialog.treeFields.UserNodeClick(dialog.treeFields.NodeOf(key));
  }
}

TEST_F(SummarizeRun, AsksTheDissolveAndOpensItsTable) {
  Open([&](Dialog& dialog) {
    Tick(dialog, {u"key_4_1", u"key_3_5", u"key_3_4"});
    dialog.cmdOK.UserClick();
    EXPECT_FALSE(dialog.Visible());
  });
  EXPECT_EQ(ToUtf8(dissolve->field), "NET");
  EXPECT_EQ(ToUtf8(dissolve->summary),
            "Minimum.NET, Count.NET, StdDev.MAG, Variance.MAG, Maximum.WHEN_");
  EXPECT_TRUE(Same(dissolve->input, quakes));
  EXPECT_FALSE(dissolve->useSelected);
  EXPECT_EQ(ToUtf8(dissolve->name), "summary.dbf");
  EXPECT_EQ(ToUtf8(dissolve->folder), "c:\\Users\\student\\Documents\\");

  ASSERT_EQ(world.map->tables.size(), 2u);
  const auto added = world.map->tables.back();
  EXPECT_TRUE(Same(added->Table(), dissolve->result));
  ASSERT_FALSE(world.tableWindows.empty());
  EXPECT_TRUE(Same(world.tableWindows.back()->item, added));
  EXPECT_TRUE(world.tableWindows.back()->open);
  EXPECT_EQ(world.tableWindows.back()->settings.size(), 3u);
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SummarizeRun, SelectedRowsOnlyWhereTheBoxIsTicked) {
  quakes->selected = {1};
  Open([](Dialog& dialog) { dialog.cmdOK.UserClick(); });
  EXPECT_TRUE(dissolve->useSelected);
  EXPECT_EQ(ToUtf8(dissolve->summary), "Minimum.NET, Count.NET");
  Open([](Dialog& dialog) {
    dialog.chkSumSelected.UserClick();
    dialog.cmdOK.UserClick();
  });
  EXPECT_FALSE(dissolve->useSelected);
}

TEST_F(SummarizeRun, RefusesATakenPathThenAMissingFolder) {
  world.files[u"C:\\There\\taken.dbf"] = "";
  Open([&](Dialog& dialog) {
    for (const Text path : {u"C:\\There\\taken.dbf", u"C:\\Nowhere\\new.dbf"}) {
      dialog.txtOutput.UserEdit(path, 0, 0);
      dialog.cmdOK.UserClick();
      EXPECT_TRUE(dialog.Visible());
    }
  });
  EXPECT_EQ(Boxes(world),
            "[BrelmonOpenTable] Unable to save output to C:\\There\\taken.dbf.\r\nTable already "
            "exists!\r\n\r\nBailing out...\n"
            "[BrelmonOpenTable] Unable to save output to C:\\Nowhere\\.  Bailing out...\n");
  EXPECT_EQ(dissolve->runs, 0);
}

TEST_F(SummarizeRun, AFailedDissolveIsToldAndTheDialogStays) {
  dissolve->fails = true;
  Open([](Dialog& dialog) {
    dialog.cmdOK.UserClick();
    EXPECT_TRUE(dialog.Visible());
  });
  EXPECT_NE(Trails(world).find("cmdOK_Click"), std::string::npos);
  EXPECT_NE(Trails(world).find("The disk is full"), std::string::npos);
  EXPECT_EQ(world.map->tables.size(), 1u);
}

}  // namespace
}  // namespace brelmon::test
