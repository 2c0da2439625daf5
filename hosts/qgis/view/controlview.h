// SPDX-License-Identifier: GPL-2.0-or-later
// The widget of one control. There is one kind of view per kind of control, and none per form.
#pragma once

#include <QWidget>
#include <memory>

#include "toolkit/controls.h"

namespace brelmon::qgis {

/// Which aspects of a control are to be shown anew.
class Aspects {
 public:
  void Add(Aspect aspect) { bits_ |= 1u << static_cast<unsigned>(aspect); }
  bool Has(Aspect aspect) const { return (bits_ & (1u << static_cast<unsigned>(aspect))) != 0; }
  bool Any() const { return bits_ != 0; }
  static Aspects All() {
    Aspects all;
    all.bits_ = ~0u;
    return all;
  }

 private:
  unsigned bits_ = 0;
};

/// What a view of a control may ask of the form's view.
class IFormSurface {
 public:
  virtual ~IFormSurface() = default;
  /// False once the form is hidden or unloaded: its controls must not be touched any more.
  virtual bool Open() const = 0;
  /// Runs what a user did to a control: keeps the form through it, shows what it changed, and
  /// tells of a failure that came through.
  virtual void Do(const std::function<void()>& deed) = 0;
  /// Pixels of a length in twips.
  virtual int Pixels(Twips length) const = 0;
};

class ControlView {
 public:
  virtual ~ControlView() = default;  // the widget belongs to its parent widget
  virtual QWidget& Widget() = 0;
  /// Reads the control anew; raises no event of the control.
  virtual void Update(const Aspects& aspects) = 0;
  /// Twips have become other pixels.
  virtual void Rescale() {}
  /// Aspects that can't wait for the end of the turn.
  virtual bool Urgent(Aspect) const { return false; }
  /// The smallest size in pixels that shows all of the caption at `width` pixels; (0, 0) for a
  /// control that cuts nothing.
  virtual QSize Needed(int width) const {
    static_cast<void>(width);
    return {0, 0};
  }
};

/// `parent` is the form's client area or the frame's widget.
std::unique_ptr<ControlView> NewControlView(Control& control, IFormSurface& surface,
                                            QWidget* parent);

}  // namespace brelmon::qgis
