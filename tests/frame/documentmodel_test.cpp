// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/documentmodel.h"

#include <gtest/gtest.h>

#include <map>

#include "frame/command.h"
#include "frame/errorhandling.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeElement;
using test::FakeWorld;

class EnabledRules : public ::testing::Test {
 protected:
  /// The rules that hold now, one letter each, in the order of the enumeration.
  std::string Holding() {
    using enum EnabledRule;
    std::string holding;
    std::size_t letter = 0;
    for (const EnabledRule rule : {Always, ContentsAny, ContentsValid, ContentsOne,
                                   ContentsDeletable, Graphics, MapHasData, AnySelection}) {
      if (IsEnabled(rule, world.document)) holding += "wavodgms"[letter];
      ++letter;
    }
    return holding;
  }

  FakeWorld world;
};

TEST_F(EnabledRules, FollowTheContentsSelection) {
  const auto valid = world.map->AddFeatureLayer(u"valid");
  const auto broken = world.map->AddFeatureLayer(u"broken");
  broken->valid = false;
  const auto table = world.map->AddTable(u"table");
  const auto brokenTable = world.map->AddTable(u"broken table");
  brokenTable->valid = false;
  const auto group = world.map->AddOther(u"group");
  world.map->graphics.push_back(New<FakeElement>());
  const struct {
    const char* what;
    std::vector<Ref<IObject>> picked;
    const char* holding;
  } rows[] = {
      {"nothing", {}, "wm"},
      {"a valid layer", {valid}, "wavodgm"},
      {"an invalid layer", {broken}, "wadm"},
      {"a valid table", {table}, "wavodm"},
      {"an invalid table", {brokenTable}, "wadm"},
      {"a group layer", {group}, "wm"},
      {"a data frame", {world.map}, "wdm"},
      {"a set with a valid layer", {group, broken, valid}, "wavdgm"},
      {"a set of tables alone", {table, table}, "wadm"},
  };
  for (const auto& row : rows) {
    world.document->Pick(row.picked);
    for (const std::size_t tab : {0u, 1u}) {
      world.document->tab = tab;
      EXPECT_EQ(Holding(), row.holding) << row.what;
    }
    world.document->tab = 2;  // the selection tab closes every gate
    EXPECT_EQ(Holding(), "wm") << row.what;
  }
  world.document->tab = 0;
  world.map->graphics.clear();
  world.document->Pick({valid});
  EXPECT_EQ(Holding(), "wavodm");
}

TEST_F(EnabledRules, MapHasDataLooksIntoGroupsAndThenAtTables) {
  EXPECT_EQ(Holding(), "w");  // no layers: the refusal to enumerate is ignored
  const auto inner = New<test::FakeLayer>();
  inner->valid = false;
  world.map->AddOther(u"group", {inner});
  EXPECT_EQ(Holding(), "w");
  const auto table = world.map->AddTable(u"table");
  EXPECT_EQ(Holding(), "wm");
  table->valid = false;
  inner->valid = true;
  EXPECT_EQ(Holding(), "wm");
  EXPECT_TRUE(world.trails.empty());
}

struct LostLayer : public test::FakeLayer {
  bool Valid() override { Raise(failure::kRefused); }
};
TEST_F(EnabledRules, MapHasDataIgnoresFailuresOfLayersAlone) {
  world.map->layers.push_back(New<LostLayer>());
  EXPECT_EQ(Holding(), "w");
  world.map->AddFeatureLayer(u"behind it");
  EXPECT_EQ(Holding(), "wm");
  world.document->maps.clear();
  EXPECT_ANY_THROW(IsEnabled(EnabledRule::MapHasData, world.document));
}

TEST_F(EnabledRules, AnySelectionLooksIntoEveryFrame) {
  const auto other = world.document->AddMap(u"Other");
  const auto layer = New<test::FakeLayer>();
  other->AddOther(u"group", {layer});
  const auto table = other->AddTable(u"table", {{u"N"}}, {{Value(1.0)}});
  table->offersSelection = false;
  EXPECT_FALSE(IsEnabled(EnabledRule::AnySelection, world.document));
  layer->selected = {0};
  EXPECT_TRUE(IsEnabled(EnabledRule::AnySelection, world.document));
  layer->selected.clear();
  table->offersSelection = true;
  table->selected = {0};
  EXPECT_TRUE(IsEnabled(EnabledRule::AnySelection, world.document));
}

class Probe : public BrelmonCommand {
 public:
  explicit Probe(TextView className) : BrelmonCommand(className, Guarded::Yes) {}
  void OnClick() override {}
};

TEST_F(EnabledRules, AFailureDisablesAndIsShownAtEachAsking) {
  Probe command(u"cmdSelectAll");  // never created: its document is unset
  EXPECT_FALSE(command.Enabled());
  EXPECT_FALSE(command.Enabled());
  EXPECT_EQ(world.trails.size(), 2u);
  EXPECT_NE(Trails(world).find("\tICommand_Enabled tests/frame/documentmodel_test.cpp"),
            std::string::npos);
}

}  // namespace
}  // namespace brelmon
