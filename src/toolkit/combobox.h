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
  bool ListOnly();
  void SetListOnly(bool listOnly);
  void AddItem(const brelmon::Text& text);
  void Clear();  // no rows, no text; runs nothing
  std::int32_t ListCount();
  /// Row from 0; out of bounds fails with 380.
  brelmon::Text List(std::int32_t row);
  std::int32_t ListIndex();  // -1 for none
  /// -1 empties the text and runs nothing.
  void SetListIndex(std::int32_t row);
  brelmon::Text Text();
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
  std::int32_t RowOf(const brelmon::Text& text) const;  // -1 for none
  void Choose(std::int32_t row);
  void Enter(const brelmon::Text& text);
  std::vector<brelmon::Text> rows_;
  std::int32_t index_ = -1;
  brelmon::Text text_;
  bool listOnly_ = false;
};

}  // namespace brelmon
