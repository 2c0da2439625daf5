// SPDX-License-Identifier: GPL-2.0-or-later
#include "layertools/cmdDeleteSelLayers.h"

#include <gtest/gtest.h>

#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeTableWindow;
using test::FakeWorld;

class DeleteLayers : public ::testing::Test {
 protected:
  DeleteLayers() { command.OnCreate(world.application); }
  void Click(std::vector<Ref<IObject>> picked, int answer = box::kAnswerOk) {
    world.document->Pick(std::move(picked));
    world.answers = {answer};
    command.OnClick();
    ASSERT_TRUE(world.trails.empty()) << Trails(world);
  }
  FakeWorld world;
  cmdDeleteSelLayers command;
};

TEST_F(DeleteLayers, ASetOfEveryKindIsListedAndRemoved) {
  const auto broken = world.map->AddFeatureLayer(u"broken");
  broken->valid = false;  // the way to be rid of it
  const auto group = world.map->AddOther(u"group");
  const auto table = world.map->AddTable(u"table");
  const auto other = world.document->AddMap(u"Other");
  Click({broken, group, table, other});
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(world.boxes[0].title, u"Confirm Deletion:");
  EXPECT_EQ(world.boxes[0].style, 1);
  EXPECT_EQ(ToUtf8(world.boxes[0].text),
            "Please click 'OK' to confirm that you wish to delete the following objects:\r\n"
            "------------------------------------------------------- \r\n"
            "  --> broken\r\n  --> table\r\n  --> Other [Map Frame]\r\n");
  EXPECT_EQ(world.map->LayerCount(), 1);  // the group stays
  EXPECT_EQ(world.map->StandaloneTableCount(), 0);
  EXPECT_EQ(world.document->Count(), 1);
  EXPECT_EQ(world.log.back(), "PartialRefresh 6");
}

TEST_F(DeleteLayers, TheOnlyDataFrameGivesWayToAnEmptyOne) {
  world.map->AddFeatureLayer(u"layer");
  world.map->name = u"Earth";
  Click({world.map});
  EXPECT_TRUE(world.boxes[0].text.ends_with(u"  --> Earth\r\n"));
  ASSERT_EQ(world.document->Count(), 1);
  EXPECT_EQ(world.document->FocusMap()->Name(), u"Layers");
  EXPECT_EQ(world.document->FocusMap()->LayerCount(), 0);
}

TEST_F(DeleteLayers, CancelKeepsTheItemsButNotTheirWindows) {
  const auto layer = world.map->AddFeatureLayer(u"layer");
  const Ref<IObject> items[] = {layer, world.map->AddTable(u"table")};
  for (const auto& item : items) {
    world.tableWindows.push_back(New<FakeTableWindow>(world.tableWindows));
    world.tableWindows.back()->item = item;
    world.tableWindows.back()->open = true;
  }
  Click({layer}, box::kAnswerCancel);
  EXPECT_EQ(world.map->LayerCount(), 1);
  EXPECT_FALSE(world.tableWindows[0]->open);
  EXPECT_TRUE(world.tableWindows[1]->open);
}

TEST_F(DeleteLayers, TheSelectionTabAndOtherKindsCloseTheGate) {
  const auto layer = world.map->AddFeatureLayer(u"layer");
  world.document->tab = 2;
  Click({layer});
  world.document->tab = 0;
  Click({world.map->AddOther(u"group")});
  EXPECT_TRUE(world.boxes.empty());
  EXPECT_EQ(world.map->LayerCount(), 2);
}

}  // namespace
}  // namespace brelmon
