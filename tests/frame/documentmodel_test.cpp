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
    const std::map<EnabledRule, char> letters = {{EnabledRule::Always, 'w'},
                                                 {EnabledRule::ContentsAny, 'a'},
                                                 {EnabledRule::ContentsValid, 'v'},
                                                 {EnabledRule::ContentsOne, 'o'},
                                                 {EnabledRule::ContentsDeletable, 'd'},
                                                 {EnabledRule::Graphics, 'g'},
                                                 {EnabledRule::MapHasData, 'm'},
                                                 {EnabledRule::AnySelection, 's'}};
    std::string holding;
    for (const auto& [rule, letter] : letters) {
      if (IsEnabled(rule, world.document)) holding += letter;
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
      {"two invalid layers", {broken, broken}, "wadm"},
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
struct UnlistedMap : public test::FakeMap {
  Ref<IEnumLayer> Layers(const Ref<UID>&, bool) override { return {}; }
};

TEST_F(EnabledRules, MapHasDataIgnoresFailuresOfLayersAlone) {
  world.map->layers.push_back(New<LostLayer>());
  EXPECT_EQ(Holding(), "w");
  world.map->AddTable(u"table");
  EXPECT_EQ(Holding(), "wm");
  WalkFeatureLayers(New<UnlistedMap>(), [](const Ref<ILayer>&) { return true; });
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
  explicit Probe(TextView className, Guarded guarded = Guarded::Yes)
      : BrelmonCommand(className, guarded) {}
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

TEST(Commands, TheTableIsWhole) {
  FakeWorld world;
  std::int32_t id = 101;
  for (const CommandInfo& info : CommandTable()) {
    EXPECT_EQ(info.BitmapId, id++);
    Probe command(info.ClassName);
    EXPECT_EQ(command.Bitmap(), info.BitmapId) << ToUtf8(info.ClassName);
    EXPECT_FALSE(command.Checked());
    EXPECT_EQ(command.HelpFile(), u"");
    EXPECT_EQ(command.HelpContextID(), 0);
    const bool editor = TextView(info.ClassName).starts_with(u"cmdQL");
    EXPECT_EQ(command.Category(), editor ? u"Brelmon QL Commands" : u"Brelmon Commands");
  }
  EXPECT_EQ(Probe(u"cmdStats").Tooltip(), u"Brelmon Statistics");
  EXPECT_EQ(Probe(u"cmdStats").Caption(), u"Calculate Statistics");
  EXPECT_EQ(Probe(u"cmdSelectAll").Tooltip(), Probe(u"cmdSelectAll").Caption());
  EXPECT_TRUE(world.trails.empty());
}

TEST(Commands, OnCreateKeepsApplicationAndDocument) {
  FakeWorld world;
  world.map->AddFeatureLayer(u"layer");
  Probe command(u"cmdSelectNone");
  command.OnCreate(world.application);
  EXPECT_TRUE(command.Enabled());
  command.OnCreate(world.document);  // no application
  EXPECT_NE(Trails(world).find("\t13\r\n"), std::string::npos);
}

TEST(Commands, AnUnguardedCommandLetsItsFailureOut) {
  FakeWorld world;
  Probe command(u"cmdSelByGraphic", Probe::Guarded::No);
  EXPECT_THROW(command.Enabled(), Failure);
  EXPECT_TRUE(world.trails.empty());
}

}  // namespace
}  // namespace brelmon
