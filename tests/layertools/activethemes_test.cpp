// SPDX-License-Identifier: GPL-2.0-or-later
// The commands that act at once on the active themes: tables, select all, switch, clear.
#include <gtest/gtest.h>

#include "layertools/OpenTable.h"
#include "layertools/cmdSelectAll.h"
#include "layertools/cmdSelectNone.h"
#include "layertools/cmdSelectSwitch.h"
#include "layertools/tablewindows.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;
using Numbers = std::set<std::size_t>;

class ActiveThemes : public testing::Test {
 protected:
  ActiveThemes() {
    first = world.map->AddFeatureLayer(u"First", {{u"N"}}, {{1.0}, {2.0}, {3.0}});
    second = world.map->AddFeatureLayer(u"Second", {{u"N"}}, {{1.0}, {2.0}});
    raster = world.map->AddOther(u"Raster");
    table = world.map->AddTable(u"Table", {{u"N"}}, {{1.0}, {2.0}});
  }
  template <class Command>
  void Click(std::vector<Ref<IObject>> picked) {
    Command command;
    command.OnCreate(world.application);
    world.document->Pick(std::move(picked));
    world.log.clear();
    command.OnClick();
    EXPECT_EQ(Trails(world), "");
  }
  void ExpectBox(const char* text) {
    ASSERT_EQ(world.boxes.size(), 1u);
    EXPECT_EQ(ToUtf8(world.boxes[0].text), text);
    EXPECT_EQ(world.boxes[0].style, 64);
    EXPECT_EQ(world.boxes[0].title, u"Problem with Data:");
  }
  std::vector<Ref<test::FakeTableWindow>> OpenWindows() {
    auto open = world.tableWindows;
    std::erase_if(open, [](const auto& window) { return !window->open; });
    return open;
  }

  FakeWorld world;
  Ref<test::FakeLayer> first, second;
  Ref<test::FakeOtherLayer> raster;
  Ref<test::FakeStandaloneTable> table;
};

TEST_F(ActiveThemes, SelectAllRedrawsBeforeAndAfter) {
  first->selected = {1};
  Click<cmdSelectAll>({first});
  EXPECT_EQ(first->selected, (Numbers{0, 1, 2}));
  EXPECT_EQ(world.log, (test::Log{"PartialRefresh 4", "SelectFeatures First 0",
                                  "SelectionChanged First", "PartialRefresh 4"}));
}

TEST_F(ActiveThemes, SwitchTurnsEachMemberOfASet) {
  second->selected = {0, 1};
  table->selected = {1};
  Click<cmdSelectSwitch>({first, raster, second, table});
  EXPECT_EQ(first->selected, (Numbers{0, 1, 2}));
  EXPECT_EQ(second->selected, Numbers{});
  EXPECT_EQ(table->selected, Numbers{0});
  EXPECT_TRUE(world.boxes.empty());
}

TEST_F(ActiveThemes, AnInvalidMemberEndsTheCommandWithoutTheClosingRedraw) {
  second->valid = false;
  Click<cmdSelectAll>({first, second, table});
  ExpectBox(
      "There is something wrong with Second!  It is not a valid layer.  Unable to set "
      "selection...");
  EXPECT_EQ(first->selected.size(), 3u);
  EXPECT_TRUE(table->selected.empty());
  EXPECT_EQ(world.log, (test::Log{"PartialRefresh 4", "SelectFeatures First 0",
                                  "SelectionChanged First", "Box [Problem with Data:]"}));
}

TEST_F(ActiveThemes, EachCommandSaysWhatItCouldNotDo) {
  first->valid = table->valid = false;
  const std::string tails[] = {
      "layer.  Unable to switch selection...", "table.  Unable to switch selection...",
      "table.  Unable to set selection...", "layer.  Unable to open table...",
      "table.  Unable to open table..."};
  Click<cmdSelectSwitch>({first});
  Click<cmdSelectSwitch>({table});
  Click<cmdSelectAll>({table});
  Click<OpenTable>({first});
  Click<OpenTable>({table});
  ASSERT_EQ(world.boxes.size(), std::size(tails));
  for (std::size_t i = 0; i < std::size(tails); ++i) {
    EXPECT_TRUE(ToUtf8(world.boxes[i].text).ends_with("!  It is not a valid " + tails[i]));
  }
}

TEST_F(ActiveThemes, NothingHappensBehindAClosedGate) {
  Click<cmdSelectAll>({raster});
  EXPECT_TRUE(world.log.empty());
  world.document->tab = 2;
  Click<cmdSelectAll>({first});
  Click<OpenTable>({first});
  EXPECT_TRUE(world.log.empty());
  EXPECT_TRUE(world.tableWindows.empty());
}

TEST_F(ActiveThemes, ClearReachesTheWholeMapInSilence) {
  auto deep = New<test::FakeLayer>();
  raster->members = {deep};
  second->valid = false;
  for (test::FakeRows* rows :
       {static_cast<test::FakeRows*>(first.Get()), static_cast<test::FakeRows*>(second.Get()),
        static_cast<test::FakeRows*>(deep.Get()), static_cast<test::FakeRows*>(table.Get())}) {
    rows->selected = {0};
  }
  world.document->tab = 2;
  Click<cmdSelectNone>({});
  EXPECT_TRUE(first->selected.empty() && deep->selected.empty() && table->selected.empty());
  EXPECT_EQ(second->selected, Numbers{0});
  EXPECT_TRUE(world.boxes.empty());
  EXPECT_EQ(world.log.front(), "PartialRefresh 4");
  EXPECT_EQ(world.log.back(), "PartialRefresh 4");
}

TEST_F(ActiveThemes, ClearDoesTablesWhereTheMapHasNoLayers) {
  world.map->layers.clear();
  table->selected = {0};
  Click<cmdSelectNone>({});
  EXPECT_TRUE(table->selected.empty());
  EXPECT_TRUE(world.boxes.empty());
}

TEST_F(ActiveThemes, AFailedClickTellsInABareBox) {
  cmdSelectNone command;  // never given a document
  command.OnClick();
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_TRUE(
      ToUtf8(world.boxes[0].text).starts_with("Class_Terminate src/layertools/cmdSelectNone.cpp "));
  EXPECT_EQ(world.boxes[0].style, 0);
}

TEST_F(ActiveThemes, TablesOpenOnceEach) {
  Click<OpenTable>({first, raster, table});
  ASSERT_EQ(OpenWindows().size(), 2u);
  EXPECT_TRUE(Same(OpenWindows()[0]->item, first));
  EXPECT_EQ(OpenWindows()[0]->settings,
            (std::vector<std::string>{"application", "action 2", "layer true"}));
  EXPECT_TRUE(Same(OpenWindows()[1]->item, table));
  EXPECT_EQ(OpenWindows()[1]->settings,
            (std::vector<std::string>{"application", "action 2", "table true false"}));
  Click<OpenTable>({first});
  EXPECT_EQ(OpenWindows().size(), 2u);
  OpenNewTableWindow(table, world.application);
  EXPECT_EQ(OpenWindows().size(), 3u);
}

TEST_F(ActiveThemes, AnInvalidMemberKeepsLaterTablesShut) {
  second->valid = false;
  Click<OpenTable>({first, second, table});
  EXPECT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(OpenWindows().size(), 1u);
}

}  // namespace
}  // namespace brelmon
