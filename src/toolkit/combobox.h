// SPDX-License-Identifier: GPL-2.0-or-later
// The combo box.
#pragma once

#include <vector>

#include "toolkit/form.h"

namespace brelmon {

/// A drop-down list, with a box to type into unless it is a list only.
class ComboBox : public Control {
 public:
  ComboBox(Form& owner, Text name) : Control(owner, ControlKind::ComboBox, std::move(name)) {}
  std::function<void()> Click, Change;
  bool ListOnly() { return Loaded(listOnly_); }
  void SetListOnly(bool listOnly);
  /// `data` is what whoever fills the list keeps with the row.
  void AddItem(const brelmon::Text& text, std::int32_t data = 0);
  void Clear();  // no rows, no text; runs nothing
  std::int32_t ListCount() { return static_cast<std::int32_t>(Loaded(rows_).size()); }
  /// Row from 0; out of bounds fails with 380.
  brelmon::Text List(std::int32_t row);
  std::int32_t ItemData(std::int32_t row);
  std::int32_t ListIndex() { return Loaded(index_); }  // -1 for none
  /// -1 empties the text and runs nothing.
  void SetListIndex(std::int32_t row);
  brelmon::Text Text() { return Loaded(text_); }
  /// Chooses the row of exactly that text, if there is one, and runs Change. A list only takes
  /// nothing but a row's text, else fails with 380, and runs Click.
  void SetText(const brelmon::Text& text);
  /// Clicks, also for the row that is chosen already.
  void UserChoose(std::int32_t row);
  void UserType(const brelmon::Text& text);

 protected:
  void ResetDesign() override;
  brelmon::Text DumpOwn() override;

 private:
  std::size_t CheckedRow(std::int32_t row);
  std::int32_t RowOf(const brelmon::Text& text) const;  // -1 for none
  void Choose(std::int32_t row);
  void Enter(const brelmon::Text& text);
  std::vector<brelmon::Text> rows_;
  std::vector<std::int32_t> data_;
  std::int32_t index_ = -1;
  brelmon::Text text_;
  bool listOnly_ = false;
};

}  // namespace brelmon
