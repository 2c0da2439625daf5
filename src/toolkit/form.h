// SPDX-License-Identifier: GPL-2.0-or-later
// A form: a plain class whose controls are members and whose events are methods.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/object.h"
#include "toolkit/control.h"

namespace brelmon {

class CommandButton;

/// What a host's view of a form hears. Set while the form is on the screen.
class IFormView {
 public:
  virtual ~IFormView() = default;
  virtual void ControlChanged(Control& control, Aspect aspect) = 0;
  /// Caption, size or minimum size.
  virtual void FormChanged() = 0;
  /// Hidden or unloaded: a modal show is to return.
  virtual void FormClosed() = 0;
};

/// Life: unloaded, loading, loaded. The first touch of a control loads: Design puts every
/// control to its design state, then Form_Load runs. Hiding keeps the state, unloading ends it.
class Form : public virtual IObject, public Container, public std::enable_shared_from_this<Form> {
 public:
  enum class State { Unloaded, Loading, Loaded };

  /// `name` is the class's, by which a host or a test knows the form.
  explicit Form(Text name);
  ~Form() override;

  const Text& Name() const { return name_; }
  State LoadState() const { return state_; }
  void EnsureLoaded();

  Text Caption() { return Loaded(caption_); }
  void SetCaption(const Text& caption);
  Twips Width() { return Loaded(width_); }
  Twips Height() { return Loaded(height_); }
  Twips ContainerWidth() override { return Width(); }
  Twips ContainerHeight() override { return Height(); }
  /// Client size. Once loaded, runs Form_Resize and the listeners.
  void Resize(Twips width, Twips height);
  bool Sizable() { return Loaded(sizable_); }
  /// Colour of the form's own ground; controls with a default colour stand on it.
  Colour BackColor() { return Loaded(backColor_); }
  void SetBackColor(Colour colour);

  /// Shows through the host and returns when the form has hidden or unloaded itself. A form that
  /// is shown already fails with 400.
  void ShowModal();
  void Hide();
  void Unload();
  bool Visible() const { return visible_; }

  // What a user does to the form itself; views and the headless user call these.
  void UserClose();  // the title bar's button
  void UserClick();  // the form's own ground: Form_MouseDown, then Form_Click
  void UserMouseMove();
  void UserActivate();
  /// Clicks the default button (Enter) or the cancel button (Escape), if there is a usable one.
  void UserEnter();
  void UserEscape();

  const std::vector<Control*>& Controls() const { return controls_; }
  /// Fails with 5 for a name that no control bears (regardless of case).
  Control& ControlNamed(TextView name);
  /// Tab stops that a user can reach, in order.
  std::vector<Control*> TabOrder();
  Control* Focused() const { return focused_; }

  /// Called after each resize, before Form_Resize. Returns nothing to unregister: it lives as
  /// long as the load state.
  void ListenToResize(std::function<void()> listener);

  void SetView(IFormView* view) { view_ = view; }
  IFormView* View() const { return view_; }
  /// Runs events that belong to one doing of a user; the second is dropped if the first unloaded
  /// the form.
  void RunBoth(const std::function<void()>& first, const std::function<void()>& second);

  /// Set by a modeless frame that holds this form: hides when the form is hidden or unloaded.
  void SetVisibleInFrame(bool visible);

  /// The whole state as text, a line for the form and one a control, in order of construction,
  /// controls of a frame indented below it.
  Text Dump();

 protected:
  /// Sets captions, places and design values of every control. Runs at each load.
  virtual void Design() = 0;
  virtual void Form_Load() {}
  virtual void Form_Unload() {}
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_Click() {}
  virtual void Form_MouseDown() {}
  virtual void Form_MouseMove() {}

  /// For Design: the form's own properties.
  void Design(const Text& caption, Twips width, Twips height, bool sizable = false);

 private:
  friend class Control;
  void Adopt(Control& control);
  void ControlChanged(Control& control, Aspect aspect);
  void MoveFocus(Control* control);
  /// Keeps the form through its own events, where a Ref holds it.
  std::shared_ptr<Form> Alive() { return weak_from_this().lock(); }
  /// Runs one of the form's own events; false if the form was unloaded by it.
  template <class Event>
  bool Run(Event event);
  template <class T>
  const T& Loaded(const T& field) {
    EnsureLoaded();
    return field;
  }
  void DropState();
  void FocusFirst();
  CommandButton* UsableButton(bool (CommandButton::*role)());
  void DumpControls(Control* container, const Text& indent, Text& dump);

  Text name_;
  State state_ = State::Unloaded;
  bool visible_ = false;
  bool designing_ = false, loading_ = false, unloading_ = false;
  int unloads_ = 0;  // tells whether an event unloaded the form
  Text caption_;
  Twips width_ = 0, height_ = 0;
  bool sizable_ = false;
  Colour backColor_ = colour::kDefault;
  std::vector<Control*> controls_;
  std::vector<std::function<void()>> resizeListeners_;
  Control* focused_ = nullptr;
  IFormView* view_ = nullptr;
};

}  // namespace brelmon
