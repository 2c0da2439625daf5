// SPDX-License-Identifier: GPL-2.0-or-later
// Closing forms, reading rows, pressing and typing.
#include "cli/userforms.h"

namespace brelmon::cli {

void Dismiss(Form& form) {
  if (form.Visible()) form.UserEscape();
  if (form.Visible()) form.UserClose();
}

std::vector<Text> RowsOf(ListBox& list) {
  std::vector<Text> rows;
  rows.reserve(static_cast<std::size_t>(list.ListCount()));
  for (std::int32_t row = 0; row < list.ListCount(); ++row) rows.push_back(list.List(row));
  return rows;
}

void Press(Form& form, TextView button, const std::string& reason) {
  CommandButton& pressed = Get<CommandButton>(form, button);
  if (!pressed.Usable()) throw Refusal(reason);
  pressed.UserClick();
}

void TypeOver(TextBox& box, const Text& text) {
  box.UserEdit(text, static_cast<std::int32_t>(text.size()), 0);
}

}  // namespace brelmon::cli
