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
  EXPECT_NE(std::find(world.log.begin(), world.log.end(), "UpdateContents"), world.log.end());
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
    dialog.txtOutput.UserEdit(u"C:\\There\\taken.dbf", 0, 0);
    dialog.cmdOK.UserClick();
    EXPECT_TRUE(dialog.Visible());
    dialog.txtOutput.UserEdit(u"C:\\Nowhere\\new.dbf", 0, 0);
    dialog.cmdOK.UserClick();
    EXPECT_TRUE(dialog.Visible());
  });
  ASSERT_EQ(world.boxes.size(), 2u);
  EXPECT_EQ(ToUtf8(world.boxes[0].text),
            "Unable to save output to C:\\There\\taken.dbf.\r\nTable already exists!\r\n\r\n"
            "Bailing out...");
  EXPECT_EQ(ToUtf8(world.boxes[1].text), "Unable to save output to C:\\Nowhere\\.  Bailing out...");
  for (const auto& box : world.boxes) {
    EXPECT_EQ(box.style, 0);
    EXPECT_EQ(ToUtf8(box.title), "BrelmonOpenTable");
  }
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

TEST_F(SummarizeRun, TheCommandOffersTablesAloneAndNothingSilently) {
  world.map->layers.clear();
  bool shown = false;
  Open([&](Dialog& dialog) {
    shown = true;
    EXPECT_EQ(ToUtf8(dialog.cbxLayer.Text()), "Visits");
  });
  EXPECT_TRUE(shown);
  world.map->tables.clear();
  shown = false;
  Open([&](Dialog&) { shown = true; });
  EXPECT_FALSE(shown);
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SummarizeRun, TheCommandPreselectsAndKeepsNothing) {
  const auto group = world.map->AddOther(u"Group");
  OpenOn(group, [](Dialog& dialog) { EXPECT_EQ(dialog.cbxLayer.ListIndex(), 0); });
  OpenOn(visits, [](Dialog& dialog) {
    EXPECT_EQ(ToUtf8(dialog.cbxLayer.Text()), "Visits");
    dialog.txtOutput.UserEdit(u"C:\\other.dbf", 0, 0);
  });
  OpenOn(visits, [](Dialog& dialog) {
    EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), "c:\\Users\\student\\Documents\\summary.dbf");
  });
  EXPECT_EQ(Trails(world), "");
}

}  // namespace
}  // namespace brelmon::test
