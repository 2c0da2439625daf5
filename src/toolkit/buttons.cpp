// SPDX-License-Identifier: GPL-2.0-or-later
// Command buttons, option buttons and check boxes.
#include "toolkit/buttons.h"
#include "toolkit/dump.h"

namespace brelmon {

void CommandButton::SetRole(bool CommandButton::*role, bool on) {
  Touch();
  for (Control* control : Owner().Controls()) {
    if (!on || control == this || control->Kind() != ControlKind::CommandButton) continue;
    auto* other = static_cast<CommandButton*>(control);
    other->Assign(other->*role, false, Aspect::State);
  }
  Assign(this->*role, on, Aspect::State);
}

void CommandButton::SetDefault(bool isDefault) { SetRole(&CommandButton::default_, isDefault); }

void CommandButton::SetCancel(bool isCancel) { SetRole(&CommandButton::cancel_, isCancel); }

void CommandButton::SetPicture(const brelmon::Picture& picture) {
  Assign(picture_, picture, Aspect::Look);
}

void CommandButton::UserClick() {
  if (!Usable()) return;
  TakeFocus();
  Fire(Click);
}

void CommandButton::ResetDesign() {
  Control::ResetDesign();
  default_ = cancel_ = false;
  picture_.reset();
}

Text CommandButton::DumpOwn() {
  Text own;
  if (default_) own += u" default";
  if (cancel_) own += u" cancel";
  return own + dump::PictureText(picture_);
}

void OptionButton::SetValue(bool value) {
  Touch();
  if (value == value_) return;
  if (value) {
    for (Control* control : Owner().Controls()) {
      if (control == this || control->Kind() != ControlKind::OptionButton) continue;
      if (control->ContainerControl() != ContainerControl()) continue;
      auto* neighbour = static_cast<OptionButton*>(control);
      neighbour->Assign(neighbour->value_, false, Aspect::Value);
    }
  }
  Assign(value_, value, Aspect::Value);
  if (value) Fire(Click);
}

void OptionButton::UserClick() {
  if (!Usable()) return;
  TakeFocus();
  SetValue(true);
}

void OptionButton::ResetDesign() {
  Control::ResetDesign();
  value_ = false;
}

Text OptionButton::DumpOwn() { return value_ ? u" on" : u" off"; }

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) Raise(failure::kInvalidPropertyValue);
  Touch();
  if (value == value_) return;
  Assign(value_, value, Aspect::Value);
  Fire(Click);
}

void CheckBox::UserClick() {
  if (!Usable()) return;
  TakeFocus();
  SetValue(value_ == 1 ? 0 : 1);
}

void CheckBox::ResetDesign() {
  Control::ResetDesign();
  value_ = 0;
}

Text CheckBox::DumpOwn() { return u" value=" + dump::Number(value_); }

}  // namespace brelmon
