// SPDX-License-Identifier: GPL-2.0-or-later
// A map to ask questions of, and a user who opens the query dialog and works in it.
#pragma once

#include <gtest/gtest.h>

#include "selection/cmdSelByAttBrelmon.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {

class QueryDialogTest : public ::testing::Test {
 protected:
  using Work = std::function<void(brelmon_ModQueryDialog&)>;

  QueryDialogTest() { command.OnCreate(world.application); }

  /// Clicks the toolbar's button, does `work` in the dialog, and leaves by Cancel.
  void Open(const Work& work = {}) {
    world.users[u"brelmon_ModQueryDialog"] = [&](Form& form) {
      auto& dialog = static_cast<brelmon_ModQueryDialog&>(form);
      if (work) work(dialog);
      if (form.Visible()) dialog.cmdCancel.UserClick();
    };
    command.OnClick();
  }
  /// The same with an item chosen in the contents view.
  void OpenOn(const Ref<IObject>& item, const Work& work) {
    world.document->Pick({item});
    Open(work);
  }

  FakeWorld world;
  Ref<FakeLayer> towns = world.map->AddFeatureLayer(
      u"Towns",
      {{u"FID", FieldType::OID},
       {u"SECRET", FieldType::Integer, u"Secret", false},
       {u"POP", FieldType::Integer, u"Population"},
       {u"NAME", FieldType::String},
       {u"Shape", FieldType::Geometry}},
      {{0, 1, 5, u"A", Null{}}, {1, 2, 9, u"O'Brien", Null{}}, {2, 3, 7, u"b", Null{}}});
  Ref<FakeStandaloneTable> visits =
      world.map->AddTable(u"Visits", {{u"OID", FieldType::OID}, {u"WHO", FieldType::String}},
                          {{1, u"Ann"}, {2, u"Bob"}});
  cmdSelByAttBrelmon command;
};

/// Text with '|' at both ends of the selection, one where nothing is selected.
inline std::string WithCaret(TextBox& box) {
  Text text = box.Text();
  const auto start = static_cast<std::size_t>(box.SelStart());
  const auto length = static_cast<std::size_t>(box.SelLength());
  if (length != 0) text.insert(start + length, u"|");
  return ToUtf8(text.insert(start, u"|"));
}

inline std::string Rows(ListBox& list) {
  Text rows;
  for (std::int32_t row = 0; row < list.ListCount(); ++row) {
    rows += (row == 0 ? u"" : u"; ") + list.List(row);
  }
  return ToUtf8(rows);
}

}  // namespace brelmon::test
