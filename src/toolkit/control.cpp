// SPDX-License-Identifier: GPL-2.0-or-later
// What all controls share: properties, focus, accessible names.
#include "toolkit/control.h"

#include "toolkit/controls.h"
#include "toolkit/form.h"

namespace brelmon {

namespace {

void CheckSize(Twips size) {
  if (!(size >= 0)) Raise(failure::kInvalidPropertyValue);
}

/// Without the marks of accelerators and the colon that ends a label.
Text Spoken(const Text& caption) {
  Text spoken;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    spoken += caption[i];
  }
  spoken = Trim(spoken);
  if (!spoken.empty() && spoken.back() == u':') spoken.pop_back();
  return Trim(spoken);
}

/// What the picture on a control tells who can't see it.
Text PictureWords(Control& control) {
  Picture picture;
  if (control.Kind() == ControlKind::CommandButton) {
    picture = static_cast<CommandButton&>(control).Picture();
  } else if (control.Kind() == ControlKind::PictureBox) {
    picture = static_cast<PictureBox&>(control).Picture();
  }
  return picture ? picture->Description : Text();
}

}  // namespace

Control::Control(Form& owner, ControlKind kind, Text name)
    : owner_(owner), kind_(kind), name_(std::move(name)) {
  owner.Adopt(*this);
}

void Control::Touch() { owner_.EnsureLoaded(); }

void Control::Changed(Aspect aspect) { owner_.ControlChanged(*this, aspect); }

bool Control::Silent() const { return owner_.designing_; }

void Control::Fire(const std::function<void()>& event) {
  if (!event || Silent()) return;
  const auto alive = owner_.Alive();
  event();
}

void Control::ResetDesign() {
  at_ = Properties{};
  at_.tabIndex = constructed_;
}

Twips Control::Left() {
  Touch();
  return at_.left;
}

Twips Control::Top() {
  Touch();
  return at_.top;
}

Twips Control::Width() {
  Touch();
  return at_.width;
}

Twips Control::Height() {
  Touch();
  return at_.height;
}

void Control::SetLeft(Twips left) { Assign(at_.left, left, Aspect::Geometry); }

void Control::SetTop(Twips top) { Assign(at_.top, top, Aspect::Geometry); }

void Control::SetWidth(Twips width) {
  CheckSize(width);
  Assign(at_.width, width, Aspect::Geometry);
}

void Control::SetHeight(Twips height) {
  CheckSize(height);
  Assign(at_.height, height, Aspect::Geometry);
}

void Control::Move(Twips left, Twips top, Twips width, Twips height) {
  CheckSize(width);
  CheckSize(height);
  Touch();
  at_.left = left;
  at_.top = top;
  at_.width = width;
  at_.height = height;
  Changed(Aspect::Geometry);
}

brelmon::Container& Control::Container() {
  Touch();
  if (auto* frame = dynamic_cast<brelmon::Container*>(at_.container)) return *frame;
  return owner_;
}

Control* Control::ContainerControl() {
  Touch();
  return at_.container;
}

void Control::SetContainer(Control& frame) {
  if (frame.kind_ != ControlKind::Frame || &frame.owner_ != &owner_) {
    Raise(failure::kInvalidPropertyValue);
  }
  for (Control* outer = &frame; outer; outer = outer->at_.container) {
    if (outer == this) Raise(failure::kInvalidPropertyValue);
  }
  Assign(at_.container, &frame, Aspect::Geometry);
}

Text Control::Caption() {
  Touch();
  return at_.caption;
}

void Control::SetCaption(const Text& caption) { Assign(at_.caption, caption, Aspect::Caption); }

bool Control::Enabled() {
  Touch();
  return at_.enabled;
}

void Control::SetEnabled(bool enabled) { Assign(at_.enabled, enabled, Aspect::State); }

bool Control::Visible() {
  Touch();
  return at_.visible;
}

void Control::SetVisible(bool visible) { Assign(at_.visible, visible, Aspect::State); }

bool Control::Usable() {
  Touch();
  for (const Control* control = this; control; control = control->at_.container) {
    if (!control->at_.enabled || !control->at_.visible) return false;
  }
  return true;
}

Text Control::ToolTipText() {
  Touch();
  return at_.tip;
}

void Control::SetToolTipText(const Text& tip) { Assign(at_.tip, tip, Aspect::Look); }

Colour Control::ForeColor() {
  Touch();
  return at_.foreColor;
}

void Control::SetForeColor(Colour colour) { Assign(at_.foreColor, colour, Aspect::Look); }

Colour Control::BackColor() {
  Touch();
  return at_.backColor;
}

void Control::SetBackColor(Colour colour) { Assign(at_.backColor, colour, Aspect::Look); }

brelmon::Font Control::Font() {
  Touch();
  return at_.font;
}

void Control::SetFont(const brelmon::Font& font) { Assign(at_.font, font, Aspect::Look); }

Pointer Control::MousePointer() {
  Touch();
  return at_.pointer;
}

const Picture& Control::MouseIcon() {
  Touch();
  return at_.mouseIcon;
}

void Control::SetMouseIcon(const Picture& cursor) {
  Touch();
  at_.pointer = cursor ? Pointer::Custom : Pointer::Default;
  Assign(at_.mouseIcon, cursor, Aspect::Look);
}

int Control::TabIndex() {
  Touch();
  return at_.tabIndex;
}

void Control::SetTabIndex(int index) { Assign(at_.tabIndex, index, Aspect::State); }

bool Control::TabStop() {
  Touch();
  return at_.tabStop;
}

void Control::SetTabStop(bool stop) { Assign(at_.tabStop, stop, Aspect::State); }

void Control::SetFocus() {
  if (!TakesFocus() || !Usable()) Raise(failure::kInvalidCall);
  owner_.MoveFocus(this);
}

void Control::TakeFocus() {
  if (TakesFocus() && Usable()) owner_.MoveFocus(this);
}

bool Control::HasFocus() {
  Touch();
  return owner_.Focused() == this;
}

void Control::SetLabel(Control& label) { Assign(at_.label, &label, Aspect::Look); }

Text Control::AccessibleName() {
  Touch();
  if (at_.label) {
    if (Text spoken = Spoken(at_.label->at_.caption); !spoken.empty()) return spoken;
  }
  if (Text spoken = Spoken(at_.caption); !spoken.empty()) return spoken;
  if (Text spoken = Spoken(at_.tip); !spoken.empty()) return spoken;
  if (Text spoken = PictureWords(*this); !spoken.empty()) return spoken;
  const bool stops = at_.tabStop && kind_ != ControlKind::Frame;
  return stops ? name_ : Text();  // nobody wants to hear of a bare border
}

}  // namespace brelmon
