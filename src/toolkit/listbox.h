// SPDX-License-Identifier: GPL-2.0-or-later
// The list box.
#pragma once

#include <vector>

#include "toolkit/form.h"

namespace brelmon {

/// Rows of text. With extended selection several may be selected, and the index is the row
/// that has the focus.
class ListBox : public Control {
 public:
  enum class Select { Single, Extended };
  ListBox(Form& owner, Text name) : Control(owner, ControlKind::ListBox, std::move(name)) {}
  std::function<void()> Click, DblClick;

  Select MultiSelect() { return Loaded(select_); }
  void SetMultiSelect(Select select);
  /// `data` is what whoever fills the list keeps with the row.
  void AddItem(brelmon::Text text, std::int32_t data = 0);
  void Clear();  // no rows; runs nothing
  std::int32_t ListCount() { return static_cast<std::int32_t>(Loaded(rows_).size()); }
  /// Row from 0; out of bounds fails with 380 (with 9 for Selected).
  brelmon::Text List(std::int32_t row);
  std::int32_t ListIndex() { return Loaded(index_); }  // -1 for none
  void SetListIndex(std::int32_t row);
  std::int32_t ItemData(std::int32_t row);
  bool Selected(std::int32_t row);
  /// The chosen row's text, empty if none. Setting it chooses the first row of that text and
  /// clicks; a text that no row has chooses nothing and runs nothing.
  brelmon::Text Text();
  void SetText(const brelmon::Text& text);

  /// A click on a row, -1 for the empty part below the rows. Control toggles, shift extends from
  /// the row clicked last; both mean nothing to a single selection.
  void UserClick(std::int32_t row, bool control = false, bool shift = false);
  void UserDoubleClick(std::int32_t row);

 protected:
  void ResetDesign() override;
  brelmon::Text DumpOwn() override;

 private:
  void CheckRow(std::int32_t row, std::int32_t number) const;
  void SelectByUser(std::int32_t row, bool control, bool shift);
  std::vector<brelmon::Text> rows_;
  std::vector<std::int32_t> data_;
  std::vector<bool> selected_;  // of an extended list; a single one has its index
  std::int32_t index_ = -1, anchor_ = -1;
  Select select_ = Select::Single;
};

}  // namespace brelmon
