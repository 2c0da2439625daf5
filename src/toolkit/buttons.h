// SPDX-License-Identifier: GPL-2.0-or-later
// Command buttons, option buttons and check boxes.
#pragma once

#include "toolkit/form.h"

namespace brelmon {

class CommandButton : public Control {
 public:
  CommandButton(Form& owner, Text name)
      : Control(owner, ControlKind::CommandButton, std::move(name)) {}
  std::function<void()> Click;
  /// Enter and Escape of the form; one button of a form at a time has each.
  bool Default() { return Loaded(default_); }
  void SetDefault(bool isDefault);
  bool Cancel() { return Loaded(cancel_); }
  void SetCancel(bool isCancel);
  /// Shown in place of a caption.
  const brelmon::Picture& Picture() { return Loaded(picture_); }
  void SetPicture(const brelmon::Picture& picture);
  /// Takes the focus, then clicks.
  void UserClick();

 protected:
  void ResetDesign() override;
  Text DumpOwn() override;
  Text PictureWords() const override { return WordsOf(picture_); }

 private:
  void SetRole(bool CommandButton::*role, bool on);
  bool default_ = false, cancel_ = false;
  brelmon::Picture picture_;
};

/// One of the option buttons of its container.
class OptionButton : public Control {
 public:
  OptionButton(Form& owner, Text name)
      : Control(owner, ControlKind::OptionButton, std::move(name)) {}
  std::function<void()> Click;
  bool Value() { return Loaded(value_); }
  /// True switches the neighbours off, which run nothing, and clicks; false runs nothing.
  void SetValue(bool value);
  /// Chooses it; nothing runs for an option that is on already.
  void UserClick();

 protected:
  void ResetDesign() override;
  Text DumpOwn() override;

 private:
  bool value_ = false;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& owner, Text name) : Control(owner, ControlKind::CheckBox, std::move(name)) {}
  std::function<void()> Click;
  /// 0 clear, 1 ticked, 2 greyed; anything else fails with 380.
  int Value() { return Loaded(value_); }
  void SetValue(int value);
  void UserClick();  // ticked becomes clear, anything else ticked

 protected:
  void ResetDesign() override;
  Text DumpOwn() override;

 private:
  int value_ = 0;
};

}  // namespace brelmon
