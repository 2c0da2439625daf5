// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "frame/errorhandling.h"
#include "layertools/cmdHistogramStats.h"
#include "layertools/cmdSelByAttributes.h"
#include "layertools/cmdSelByLocation.h"
#include "layertools/cmdSummarize.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

struct CountedItem : public ICommandItem {
  int executed = 0;
  void Execute() override { ++executed; }
};

template <class Command>
void ExpectRuns(const Text& identifier) {
  FakeWorld world;
  Command command;
  command.OnCreate(world.application);
  command.OnClick();  // the host has no such command
  EXPECT_NE(Trails(world).find("\t91\r\n"), std::string::npos);
  const auto item = New<CountedItem>();
  world.hostCommands[identifier] = item;
  command.OnClick();
  EXPECT_EQ(item->executed, 1);
}

TEST(HostCommands, RunByIdentifier) {
  ExpectRuns<cmdHistogramStats>(u"{3E58D6D0-DF7A-11D1-ADD9-080009EC732A}");
  ExpectRuns<cmdSelByLocation>(u"{82B9951B-DD63-11D1-AA7F-00C04FA37860}");
  ExpectRuns<cmdSelByAttributes>(u"{54EBEEE6-DC82-11D1-AA7F-00C04FA37860}");
}

struct Dialog : public ISummarizeDialog {
  std::string log;
  void SetApplication(const Ref<IApplication>&) override { log += "application "; }
  void SetTable(const Ref<ITable>& table) override { log += table ? "table " : "no table "; }
  void SetField(const Ref<IField>& field) override { log += ToUtf8(field->Name()) + " "; }
  void SetFlag(bool flag) override { log += flag ? "true " : "false "; }
  void DoModal(std::int32_t window) override { log += "over " + std::to_string(window); }
};

TEST(Summarize, OpensOnTheLikeliestField) {
  using enum FieldType;
  const struct {
    std::vector<test::FakeFieldSpec> fields;
    const char* chosen;
  } rows[] = {
      {{{u"A", Integer}, {u"B", Double}, {u"C", String}, {u"D", String}}, "C"},
      {{{u"A", String}, {u"B", String}}, "A"},
      {{{u"A", Date}, {u"B", OID}, {u"C", Single}}, "C"},
      {{{u"A", Date}, {u"B", OID}}, "A"},
  };
  for (const auto& row : rows) {
    FakeWorld world;
    const auto dialog = New<Dialog>();
    world.summarizeDialog = dialog;
    cmdSummarize command;
    command.OnCreate(world.application);
    world.document->Pick({world.map->AddTable(u"table", row.fields)});
    command.OnClick();
    EXPECT_EQ(dialog->log, "application table " + std::string(row.chosen) + " true over 42");
  }
}

TEST(Summarize, RefusesWhatIsInvalidAndIgnoresTheRest) {
  FakeWorld world;
  cmdSummarize command;
  command.OnCreate(world.application);
  const auto layer = world.map->AddFeatureLayer(u"broken layer");
  const auto table = world.map->AddTable(u"broken table");
  layer->valid = table->valid = false;
  for (const Ref<IObject>& item :
       {Ref<IObject>(layer), Ref<IObject>(table), Ref<IObject>(world.map), Ref<IObject>()}) {
    world.document->Pick(item ? std::vector{item} : std::vector<Ref<IObject>>{});
    command.OnClick();
  }
  EXPECT_EQ(Boxes(world),
            "[Problem with Data:] There is something wrong with broken layer!  It is not a valid "
            "layer.  Unable to summarize this layer...\n"
            "[Problem with Data:] There is something wrong with broken table!  It is not a valid "
            "table.  Unable to summarize this layer...\n");
  EXPECT_TRUE(world.trails.empty());
}

}  // namespace
}  // namespace brelmon
