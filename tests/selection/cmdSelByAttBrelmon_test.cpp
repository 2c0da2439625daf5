// SPDX-License-Identifier: GPL-2.0-or-later
// What the command offers, and what its dialog keeps between clicks.
#include <fstream>
#include <sstream>

#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using Command = QueryDialogTest;
using Dialog = brelmon_ModQueryDialog;

TEST_F(Command, OffersValidLayersAtAnyDepthThenTables) {
  const auto nested = New<FakeLayer>();
  nested->name = u"Nested";
  const auto broken = world.map->AddFeatureLayer(u"Broken");
  broken->valid = false;
  world.map->AddOther(u"Group", {nested});
  OpenOn(broken, [](Dialog& dialog) {
    EXPECT_EQ(Rows(dialog.lbxThemes), "Towns; Nested; Visits");
    EXPECT_EQ(dialog.lbxThemes.ListIndex(), -1);
  });
  OpenOn(visits, [](Dialog& dialog) { EXPECT_EQ(Rows(dialog.lbxFields), "OID; WHO"); });
}

TEST_F(Command, SecondOpeningWithNothingSelectedLeavesTheListsStanding) {
  OpenOn(towns, [](Dialog& dialog) { dialog.lbxFields.UserDoubleClick(1); });
  world.document->selection.clear();
  Open([&](Dialog& dialog) {
    EXPECT_EQ(ToUtf8(dialog.txtQuery.Text()), "( \"POP\" )");
    EXPECT_EQ(dialog.lbxFields.ListCount(), 3);
    EXPECT_FALSE(dialog.cmdVerify.Enabled());
    EXPECT_TRUE(world.trails.empty());
    dialog.cmdNewSet.UserClick();
  });
  EXPECT_EQ(FailureIn(world), 9);
}

TEST_F(Command, ClosingByTheTitleBarBeginsAfresh) {
  OpenOn(towns, [](Dialog& dialog) {
    dialog.lbxFields.UserDoubleClick(1);
    dialog.optFiltered.UserClick();
    dialog.UserClose();
  });
  OpenOn(towns, [](Dialog& dialog) {
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( | )");
    EXPECT_TRUE(dialog.optSelected.Value());
    EXPECT_EQ(Rows(dialog.lbxThemes), "Towns; Visits");
  });
  EXPECT_EQ(Trails(world), "");
}

TEST_F(Command, HasRoomFor5001Items) {
  for (int i = 2; i < 5001; ++i) world.map->AddFeatureLayer(u"L");
  Open([&](Dialog& dialog) { EXPECT_EQ(dialog.lbxThemes.ListCount(), 5001); });
  EXPECT_EQ(Trails(world), "");
  world.map->AddFeatureLayer(u"One more");
  Open();
  EXPECT_EQ(FailureIn(world), 9);
}

TEST_F(Command, NothingValidIsAFailure) {
  towns->valid = visits->valid = false;
  Open();
  EXPECT_EQ(FailureIn(world), 9);
}

TEST_F(Command, TheWholeFormOnALayer) {
  towns->selected = {1};
  std::ifstream file(BRELMON_SOURCE_DIR "/tests/selection/brelmon_ModQueryDialog.txt");
  std::stringstream expected;
  expected << file.rdbuf();
  OpenOn(towns, [&](Dialog& dialog) { EXPECT_EQ(ToUtf8(dialog.Dump()), expected.str()); });
}

}  // namespace
}  // namespace brelmon::test
