// SPDX-License-Identifier: GPL-2.0-or-later
// The text box.
#pragma once

#include "toolkit/form.h"

namespace brelmon {

class TextBox : public Control {
 public:
  TextBox(Form& owner, Text name) : Control(owner, ControlKind::TextBox, std::move(name)) {}
  std::function<void()> Change;
  bool MultiLine() { return Loaded(multiLine_); }
  void SetMultiLine(bool multiLine);  // with a vertical scroll bar
  bool Locked() { return Loaded(locked_); }
  void SetLocked(bool locked);

  brelmon::Text Text() { return Loaded(text_); }
  /// The caret goes to 0 with nothing selected; a text it already has runs nothing and moves
  /// nothing.
  void SetText(const brelmon::Text& text);
  /// Caret and selection in units from 0. Beyond the text they are cut to it; negative fails
  /// with 380. Setting SelStart selects nothing.
  std::int32_t SelStart() { return Loaded(start_); }
  void SetSelStart(std::int32_t start);
  std::int32_t SelLength() { return Loaded(length_); }
  void SetSelLength(std::int32_t length);
  brelmon::Text SelText();
  /// Replaces the selected text; the caret ends behind what was put in.
  void SetSelText(const brelmon::Text& text);

  /// The text and caret after typing, pasting or moving about. A one-line box drops line ends,
  /// a multi-line box has CR LF for every line end.
  void UserEdit(const brelmon::Text& text, std::int32_t selStart, std::int32_t selLength);
  /// Types at the caret, in place of what is selected.
  void UserType(const brelmon::Text& text);

 protected:
  void ResetDesign() override;
  brelmon::Text DumpOwn() override;

 private:
  void Replace(const brelmon::Text& text, std::int32_t start, std::int32_t length);
  brelmon::Text text_;
  std::int32_t start_ = 0, length_ = 0;
  bool multiLine_ = false, locked_ = false;
};

}  // namespace brelmon
