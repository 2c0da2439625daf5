// SPDX-License-Identifier: GPL-2.0-or-later
// What all controls share: properties, focus, accessible names.
#include "toolkit/control.h"

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

void Control::ResetDesign() { at_ = Properties{}; }

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

void Control::SetContainer(Control& frame) {
  if (frame.kind_ != ControlKind::Frame || &frame.owner_ != &owner_) {
    Raise(failure::kInvalidPropertyValue);
  }
  for (Control* outer = &frame; outer; outer = outer->at_.container) {
    if (outer == this) Raise(failure::kInvalidPropertyValue);
  }
  Assign(at_.container, &frame, Aspect::Geometry);
}

void Control::SetCaption(const Text& caption) { Assign(at_.caption, caption, Aspect::Caption); }

void Control::SetEnabled(bool enabled) { Assign(at_.enabled, enabled, Aspect::State); }

void Control::SetVisible(bool visible) { Assign(at_.visible, visible, Aspect::State); }

bool Control::Usable() {
  Touch();
  for (const Control* control = this; control; control = control->at_.container) {
    if (!control->at_.enabled || !control->at_.visible) return false;
  }
  return true;
}

void Control::SetToolTipText(const Text& tip) { Assign(at_.tip, tip, Aspect::Look); }

void Control::SetForeColor(Colour colour) { Assign(at_.foreColor, colour, Aspect::Look); }

void Control::SetBackColor(Colour colour) { Assign(at_.backColor, colour, Aspect::Look); }

void Control::SetFont(const brelmon::Font& font) { Assign(at_.font, font, Aspect::Look); }

void Control::SetMouseIcon(const Picture& cursor) {
  Touch();
  at_.pointer = cursor ? Pointer::Custom : Pointer::Default;
  Assign(at_.mouseIcon, cursor, Aspect::Look);
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
  if (Text spoken = PictureWords(); !spoken.empty()) return spoken;
  const bool stops = at_.tabStop && kind_ != ControlKind::Frame;
  return stops ? name_ : Text();  // nobody wants to hear of a bare border
}

}  // namespace brelmon
