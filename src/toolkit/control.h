// SPDX-License-Identifier: GPL-2.0-or-later
// What every control is: a name, a place in twips, a state, and an owner that it tells of changes.
#pragma once

#include <functional>

#include "platform/failure.h"
#include "platform/pointer.h"
#include "toolkit/appearance.h"

namespace brelmon {

class Form;

/// What of a control changed, for a view that shows it.
enum class Aspect { Geometry, Caption, Items, Selection, Value, State, Look, Focus };

enum class ControlKind {
  Label,
  TextBox,
  ListBox,
  ComboBox,
  CommandButton,
  OptionButton,
  CheckBox,
  Frame,
  PictureBox,
  TreeView,
  RichTextBox,
};

/// Something with a size that controls stand in: a form or a frame.
class Container {
 public:
  virtual ~Container() = default;
  virtual Twips ContainerWidth() = 0;
  virtual Twips ContainerHeight() = 0;
};

/// Reading or writing anything of a control loads its form first. Setters tell the form's view
/// and raise the control's own events, whoever calls them.
class Control {
 public:
  Control(Form& owner, ControlKind kind, Text name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }
  const Text& Name() const { return name_; }
  Form& Owner() const { return owner_; }

  Twips Left() { return Loaded(at_.left); }
  Twips Top() { return Loaded(at_.top); }
  Twips Width() { return Loaded(at_.width); }
  Twips Height() { return Loaded(at_.height); }
  void SetLeft(Twips left);
  void SetTop(Twips top);
  /// A negative size fails with 380 and changes nothing.
  void SetWidth(Twips width);
  void SetHeight(Twips height);
  void Move(Twips left, Twips top, Twips width, Twips height);

  /// The frame it stands in, or the form.
  brelmon::Container& Container();
  /// For views: the frame, or null for the form.
  Control* ContainerControl() { return Loaded(at_.container); }
  void SetContainer(Control& frame);

  /// Text of its own with '&' before the accelerator, empty for kinds without one.
  Text Caption() { return Loaded(at_.caption); }
  void SetCaption(const Text& caption);

  bool Enabled() { return Loaded(at_.enabled); }
  void SetEnabled(bool enabled);
  bool Visible() { return Loaded(at_.visible); }
  void SetVisible(bool visible);
  /// Enabled and visible itself and through its frame: what a user can use.
  bool Usable();
  Text ToolTipText() { return Loaded(at_.tip); }
  void SetToolTipText(const Text& tip);

  Colour ForeColor() { return Loaded(at_.foreColor); }
  void SetForeColor(Colour colour);
  Colour BackColor() { return Loaded(at_.backColor); }
  void SetBackColor(Colour colour);
  brelmon::Font Font() { return Loaded(at_.font); }
  void SetFont(const brelmon::Font& font);
  Pointer MousePointer() { return Loaded(at_.pointer); }
  const Picture& MouseIcon() { return Loaded(at_.mouseIcon); }
  void SetMouseIcon(const Picture& cursor);  // and the custom pointer

  /// Place in the tab order, which is the order of construction. Frames, and labels and pictures
  /// without a click, are no tab stops.
  int TabIndex() const { return tabIndex_; }
  void SetTabStop(bool stop);
  /// Moves the focus here; a control that can't take it fails with 5.
  void SetFocus();
  bool HasFocus();

  /// Tells which label names this control.
  void SetLabel(Control& label);
  /// The label's caption, else its own, else its tip, without '&' and closing colon; its
  /// name last, empty for borders and other controls where a user never stops.
  Text AccessibleName();

  /// One line of a dump: kind, name, place, captions, state; the kind's own part last.
  Text Dump();

 protected:
  /// Loads the form if it isn't.
  void Touch();
  /// What a getter gives.
  template <class T>
  const T& Loaded(const T& field) {
    Touch();
    return field;
  }
  void Changed(Aspect aspect);
  /// Runs an event if one is wired and the form isn't just being designed. The form lives through
  /// it if it is held by a Ref, but it may be unloaded afterwards.
  void Fire(const std::function<void()>& event);
  /// True while the form is designed: nothing runs then.
  bool Silent() const;
  /// Stores a new value and tells of it; a value it already has does neither.
  template <class T>
  void Assign(T& field, const T& value, Aspect aspect) {
    Touch();
    if (field == value) return;
    field = value;
    Changed(aspect);
  }
  /// Gives the focus where this control can take it.
  void TakeFocus();
  virtual bool TakesFocus() const {
    return kind_ != ControlKind::Label && kind_ != ControlKind::Frame;
  }
  /// Back to what it was before its form was designed. Overriders call the base first.
  virtual void ResetDesign();
  virtual Text DumpOwn() { return {}; }
  /// What a picture on it tells who can't see it.
  virtual Text PictureWords() const { return {}; }

 private:
  friend class Form;

  Form& owner_;
  ControlKind kind_;
  Text name_;
  struct Properties {
    Twips left = 0, top = 0, width = 0, height = 0;
    Text caption, tip;
    bool enabled = true, visible = true, tabStop = true;
    Colour foreColor = colour::kDefault, backColor = colour::kDefault;
    brelmon::Font font;
    Pointer pointer = Pointer::Default;
    Picture mouseIcon;
    Control* container = nullptr;
    Control* label = nullptr;
  } at_;
  int tabIndex_ = 0;
};

}  // namespace brelmon
