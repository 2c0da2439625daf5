// SPDX-License-Identifier: GPL-2.0-or-later
// A map to summarize, a dissolve that remembers what it was asked, and a user of the dialog.
#pragma once

#include <gtest/gtest.h>

#include "summarize/cmdSumBrelmon.h"
#include "summarize/frm_Brelmon_Summarize.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {

class RecordingDissolve : public IBasicGeoprocessor {
 public:
  Ref<ITable> input, result = New<FakeRows>();
  bool useSelected = false, fails = false;
  Text field, summary, name, folder;
  int runs = 0;

  Ref<ITable> Dissolve(const Ref<ITable>& table, bool selectedOnly, const Text& fieldName,
                       const Text& terms, const Ref<IDatasetName>& output) override {
    ++runs;
    if (fails) Raise(failure::kRefused, Text(u"The disk is full"), 0);
    input = table;
    useSelected = selectedOnly;
    field = fieldName;
    summary = terms;
    name = output->Name;
    folder = output->WorkspaceName.As<UID>()->Value;
    return result;
  }
};

class SummarizeTest : public ::testing::Test {
 protected:
  using Work = std::function<void(frm_Brelmon_Summarize&)>;

  SummarizeTest() {
    world.geoprocessor = dissolve;
    world.files[u"c:\\Users\\student\\Documents\\essay.txt"] = "";
    command.OnCreate(world.application);
  }

  /// Clicks the toolbar's button, does `work` in the dialog, and leaves by Cancel if still there.
  void Open(const Work& work = {}) {
    world.users[u"frm_Brelmon_Summarize"] = [&](Form& form) {
      auto& dialog = static_cast<frm_Brelmon_Summarize&>(form);
      if (work) work(dialog);
      if (form.Visible()) dialog.cmdCancel.UserClick();
    };
    command.OnClick();
  }
  void OpenOn(const Ref<IObject>& item, const Work& work) {
    world.document->Pick({item});
    Open(work);
  }

  FakeWorld world;
  Ref<RecordingDissolve> dissolve = New<RecordingDissolve>();
  Ref<FakeLayer> quakes = world.map->AddFeatureLayer(
      u"Quakes",
      {{u"FID", FieldType::OID},
       {u"SECRET", FieldType::Integer, u"Secret", false},
       {u"NET", FieldType::String, u"Network"},
       {u"MAG", FieldType::Double, u"Magnitude"},
       {u"WHEN_", FieldType::Date, u"When"},
       {u"Shape", FieldType::Geometry}},
      {{0, 1, u"us", 5.5, Date{40000}, Null{}}, {1, 2, u"ci", 4.5, Date{40001}, Null{}}});
  Ref<FakeStandaloneTable> visits = world.map->AddTable(
      u"Visits", {{u"OID", FieldType::OID}, {u"WHO", FieldType::String}}, {{1, u"Ann"}});
  cmdSumBrelmon command;
};

}  // namespace brelmon::test
