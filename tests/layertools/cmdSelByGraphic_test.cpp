// SPDX-License-Identifier: GPL-2.0-or-later
#include "layertools/cmdSelByGraphic.h"

#include <gtest/gtest.h>

#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeElement;
using test::FakeWorld;
using Numbers = std::set<std::size_t>;

class SelectByGraphics : public ::testing::Test {
 protected:
  SelectByGraphics() { command.OnCreate(world.application); }
  void AddGraphic(Numbers touches) {
    auto element = New<FakeElement>();
    element->shape->touches = std::move(touches);
    world.map->graphics.push_back(element);
  }

  FakeWorld world;
  cmdSelByGraphic command;
};

TEST_F(SelectByGraphics, GraphicsAddUpInEachLayerOfASet) {
  const auto one = world.map->AddFeatureLayer(u"one");
  const auto two = world.map->AddFeatureLayer(u"two");
  const auto table = world.map->AddTable(u"table");
  one->selected = {7};
  table->selected = {1};
  AddGraphic({1, 2});
  AddGraphic({2, 3});
  world.document->Pick({one, world.map->AddOther(u"raster"), table, two});
  command.OnClick();
  EXPECT_EQ(one->selected, (Numbers{1, 2, 3}));
  EXPECT_EQ(two->selected, (Numbers{1, 2, 3}));
  EXPECT_EQ(table->selected, (Numbers{1}));
  // Listeners hear of the emptied selection only.
  const test::Log expected = {
      "PartialRefresh 4",     "Clear one",       "SelectionChanged one", "SelectFeatures one 1",
      "SelectFeatures one 1", "Clear two",       "SelectionChanged two", "SelectFeatures two 1",
      "SelectFeatures two 1", "PartialRefresh 4"};
  EXPECT_EQ(world.log, expected);
}

TEST_F(SelectByGraphics, FailuresGoToTheHostWithoutABox) {
  const auto layer = world.map->AddFeatureLayer(u"layer");
  layer->shapeField = u"geom";
  AddGraphic({1});
  world.document->Pick({layer});
  EXPECT_THROW(command.OnClick(), Failure);
  layer->shapeField = u"Shape";
  layer->valid = false;  // handed to the platform all the same
  world.document->Pick({world.map->AddOther(u"group"), layer});
  EXPECT_THROW(command.OnClick(), Failure);
  EXPECT_TRUE(world.boxes.empty());
  EXPECT_TRUE(world.trails.empty());
}

}  // namespace
}  // namespace brelmon
