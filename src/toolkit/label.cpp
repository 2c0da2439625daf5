// SPDX-License-Identifier: GPL-2.0-or-later
// Controls that only show something: labels and pictures.
#include "toolkit/label.h"
#include "toolkit/dump.h"

namespace brelmon {

void Label::UserClick() {
  if (Usable()) Fire(Click);
}

void Label::UserMouseMove() {
  if (Usable()) Fire(MouseMove);
}

void PictureBox::SetPicture(const brelmon::Picture& picture) {
  Assign(picture_, picture, Aspect::Look);
}

void PictureBox::UserClick() {
  if (!Usable()) return;
  TakeFocus();
  Fire(Click);
}

void PictureBox::ResetDesign() {
  Control::ResetDesign();
  picture_.reset();
}

Text PictureBox::DumpOwn() { return dump::PictureText(picture_); }

}  // namespace brelmon
