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
  EXPECT_EQ(Boxes(world),
            "[Problem with Data:] There is something wrong with Second!  It is not a valid layer.  "
            "Unable to set selection...\n");
  EXPECT_EQ(first->selected.size(), 3u);
  EXPECT_TRUE(table->selected.empty());
  EXPECT_EQ(world.log, (test::Log{"PartialRefresh 4", "SelectFeatures First 0",
                                  "SelectionChanged First", "Box [Problem with Data:]"}));
}

TEST_F(ActiveThemes, EachCommandSaysWhatItCouldNotDo) {
  first->valid = table->valid = false;
  Click<cmdSelectSwitch>({first});
  Click<cmdSelectSwitch>({table});
  Click<cmdSelectAll>({table});
  Click<OpenTable>({first});
  Click<OpenTable>({table});
  std::string all;
  for (const auto& box : world.boxes) all += ToUtf8(box.text.substr(box.text.find(u"valid")));
  EXPECT_EQ(all,
            "valid layer.  Unable to switch selection...valid table.  Unable to switch selection..."
            "valid table.  Unable to set selection...valid layer.  Unable to open table..."
            "valid table.  Unable to open table...");
}

TEST_F(ActiveThemes, ClearReachesTheWholeMapInSilence) {
  auto deep = New<test::FakeLayer>();
  raster->members = {deep};
  second->valid = false;
  first->selected = second->selected = deep->selected = table->selected = {0};
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
  const auto other = world.map->AddTable(u"Other", {{u"N"}}, {{1.0}});
  table->selected = other->selected = {0};
  Click<cmdSelectNone>({});
  EXPECT_TRUE(table->selected.empty() && other->selected.empty());
  EXPECT_TRUE(world.boxes.empty());
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

}  // namespace
}  // namespace brelmon
