// SPDX-License-Identifier: GPL-2.0-or-later
// Controls that only show something: labels, frames, pictures.
#pragma once

#include "toolkit/form.h"

namespace brelmon {

/// A caption, a link if Click is wired.
class Label : public Control {
 public:
  Label(Form& owner, Text name) : Control(owner, ControlKind::Label, std::move(name)) {}
  std::function<void()> Click, MouseMove;
  void UserClick();
  void UserMouseMove();

 protected:
  bool TakesFocus() const override { return Click != nullptr; }
};

class Frame : public Control, public Container {
 public:
  Frame(Form& owner, Text name) : Control(owner, ControlKind::Frame, std::move(name)) {}
  using Control::Container;
  Twips ContainerWidth() override { return Width(); }
  Twips ContainerHeight() override { return Height(); }
};

/// A picture, clickable if Click is wired.
class PictureBox : public Control {
 public:
  PictureBox(Form& owner, Text name) : Control(owner, ControlKind::PictureBox, std::move(name)) {}
  std::function<void()> Click;
  const brelmon::Picture& Picture() { return Loaded(picture_); }
  void SetPicture(const brelmon::Picture& picture);
  void UserClick();

 protected:
  bool TakesFocus() const override { return Click != nullptr; }
  void ResetDesign() override;
  Text DumpOwn() override;
  Text PictureWords() const override { return WordsOf(picture_); }

 private:
  brelmon::Picture picture_;
};

}  // namespace brelmon
