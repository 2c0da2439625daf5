// SPDX-License-Identifier: GPL-2.0-or-later
// A form's life: loading at first touch, showing, hiding, unloading; its focus and own events.
#include "toolkit/form.h"

#include <algorithm>

#include "platform/services.h"
#include "toolkit/buttons.h"
#include "toolkit/formhost.h"

namespace brelmon {

namespace {

/// Runs `undo` at the end of a scope, failed or not.
template <class Undo>
class AtExit {
 public:
  explicit AtExit(Undo undo) : undo_(std::move(undo)) {}
  ~AtExit() { undo_(); }
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;

 private:
  Undo undo_;
};

}  // namespace

Form::Form(Text name) : name_(std::move(name)) {}

Form::~Form() = default;

void Form::Adopt(Control& control) {
  control.tabIndex_ = static_cast<int>(controls_.size());
  controls_.push_back(&control);
}

void Form::EnsureLoaded() {
  if (state_ != State::Unloaded || loading_) return;
  const auto alive = Alive();
  state_ = State::Loading;
  loading_ = true;
  const AtExit settle([this] {
    loading_ = designing_ = false;
    if (state_ == State::Loading) DropState();  // the load failed on its way
  });
  for (Control* control : controls_) control->ResetDesign();
  designing_ = true;
  Design();
  designing_ = false;
  Form_Load();
  if (state_ == State::Loading) state_ = State::Loaded;
}

void Form::DropState() {
  ++unloads_;
  state_ = State::Unloaded;
  visible_ = false;
  caption_.clear();
  width_ = height_ = 0;
  sizable_ = false;
  backColor_ = colour::kDefault;
  focused_ = nullptr;
  resizeListeners_.clear();
  for (Control* control : controls_) control->ResetDesign();
}

void Form::Unload() {
  if (state_ == State::Unloaded || unloading_) return;
  const auto alive = Alive();
  unloading_ = true;
  const AtExit done([this] { unloading_ = false; });
  Form_Unload();
  visible_ = false;
  if (view_) view_->FormClosed();  // it lets go of the controls' state before that ends
  DropState();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  if (view_) view_->FormClosed();
}

void Form::ShowModal() {
  const auto alive = Alive();
  EnsureLoaded();
  if (visible_) Raise(failure::kFormAlreadyShown, u"Form already displayed; can't show modally");
  if (state_ == State::Unloaded) return;  // unloaded by its own load
  visible_ = true;
  const AtExit closed([this] { visible_ = false; });
  FocusFirst();
  Form_Activate();
  if (visible_) FormHost().ShowModal(*this);
  Hide();
}

void Form::SetVisibleInFrame(bool visible) {
  if (visible) {
    EnsureLoaded();
    FocusFirst();
  }
  visible_ = visible && state_ != State::Unloaded;
}

void Form::Design(const Text& caption, Twips width, Twips height, bool sizable) {
  caption_ = caption;
  width_ = width;
  height_ = height;
  sizable_ = sizable;
}

void Form::SetCaption(const Text& caption) {
  EnsureLoaded();
  caption_ = caption;
  if (view_) view_->FormChanged();
}

void Form::SetBackColor(Colour colour) {
  EnsureLoaded();
  backColor_ = colour;
  if (view_ && !designing_) view_->FormChanged();
}

template <class Event>
bool Form::Run(Event event) {
  const int before = unloads_;
  event();
  return unloads_ == before;
}

void Form::RunBoth(const std::function<void()>& first, const std::function<void()>& second) {
  const auto alive = Alive();
  EnsureLoaded();
  if (Run(first)) second();
}

void Form::Resize(Twips width, Twips height) {
  if (!(width >= 0) || !(height >= 0)) Raise(failure::kInvalidPropertyValue);
  const auto alive = Alive();
  EnsureLoaded();
  const bool changed = width != width_ || height != height_;
  width_ = width;
  height_ = height;
  if (changed && view_) view_->FormChanged();
  const auto listeners = resizeListeners_;
  for (const auto& listener : listeners) {
    if (!Run(listener)) return;
  }
  Form_Resize();
}

void Form::ListenToResize(std::function<void()> listener) {
  EnsureLoaded();
  resizeListeners_.push_back(std::move(listener));
}

void Form::UserClose() { Unload(); }

void Form::UserClick() {
  RunBoth([this] { Form_MouseDown(); }, [this] { Form_Click(); });
}

void Form::UserMouseMove() {
  const auto alive = Alive();
  EnsureLoaded();
  Form_MouseMove();
}

void Form::UserActivate() {
  const auto alive = Alive();
  EnsureLoaded();
  Form_Activate();
}

CommandButton* Form::UsableButton(bool (CommandButton::*role)()) {
  for (Control* control : controls_) {
    if (control->Kind() != ControlKind::CommandButton) continue;
    auto* button = static_cast<CommandButton*>(control);
    if ((button->*role)() && button->Usable()) return button;
  }
  return nullptr;
}

void Form::UserEnter() {
  if (auto* button = UsableButton(&CommandButton::Default)) button->UserClick();
}

void Form::UserEscape() {
  if (auto* button = UsableButton(&CommandButton::Cancel)) button->UserClick();
}

Control& Form::ControlNamed(TextView name) {
  for (Control* control : controls_) {
    if (EqualNoCase(control->Name(), name)) return *control;
  }
  Raise(failure::kInvalidCall);
}

std::vector<Control*> Form::TabOrder() {
  EnsureLoaded();
  std::vector<Control*> order;
  for (Control* control : controls_) {
    if (control->at_.tabStop && control->TakesFocus() && control->Usable())
      order.push_back(control);
  }
  // A group of options is one stop: the option that is on, else the first.
  std::vector<Control*> stops;
  for (Control* control : order) {
    if (control->Kind() != ControlKind::OptionButton) {
      stops.push_back(control);
      continue;
    }
    const auto same = std::find_if(stops.begin(), stops.end(), [&](const Control* stop) {
      return stop->Kind() == ControlKind::OptionButton &&
             stop->at_.container == control->at_.container;
    });
    if (same == stops.end()) {
      stops.push_back(control);
    } else if (static_cast<OptionButton*>(control)->Value()) {
      *same = control;
    }
  }
  return stops;
}

void Form::MoveFocus(Control* control) {
  if (control == focused_) return;
  Control* const before = focused_;
  focused_ = control;
  if (before) ControlChanged(*before, Aspect::Focus);
  if (control) ControlChanged(*control, Aspect::Focus);
}

void Form::FocusFirst() {
  if (focused_) return;
  const auto order = TabOrder();
  if (!order.empty()) MoveFocus(order.front());
}

void Form::ControlChanged(Control& control, Aspect aspect) {
  if (designing_) return;
  if (view_) view_->ControlChanged(control, aspect);
  if (aspect != Aspect::State || !focused_ || focused_->Usable()) return;
  // Nobody can work on with a control that went away: on to the next stop.
  const auto order = TabOrder();
  const auto next = std::find_if(order.begin(), order.end(), [this](const Control* stop) {
    return stop->tabIndex_ > focused_->tabIndex_;
  });
  MoveFocus(next != order.end() ? *next : order.empty() ? nullptr : order.front());
}

}  // namespace brelmon
