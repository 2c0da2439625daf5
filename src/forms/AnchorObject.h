// SPDX-License-Identifier: GPL-2.0-or-later
// One control and its anchors on both axes.
#pragma once

#include "forms/Anchor.h"
#include "platform/object.h"
#include "toolkit/control.h"

namespace brelmon {

class AnchorObject : public virtual IObject {
 public:
  void SetControl(brelmon::Control& control) { control_ = &control; }
  /// An object that is no control: to be held, not to be placed.
  void SetControl(Ref<IObject> other) { other_ = std::move(other); }
  /// Fails with 91 before a control is set, with 438 where what was set is none.
  brelmon::Control& Control() const;

  Anchor& X() { return x_; }
  Anchor& Y() { return y_; }
  Anchor& X2() { return x2_; }
  Anchor& Y2() { return y2_; }

  /// Captures the control's present place in its container, which must have its design size. A
  /// kind other than 0 to 6 captures nothing and leaves its axis alone from then on. A container
  /// of no size fails with 11 (with 6 for a control of no size) where a kind divides by it.
  void SetAnchors(std::int32_t XType, std::int32_t YType);
  /// Places the control by what was captured. A step that the control refuses is left undone.
  void DoAnchors();

 private:
  struct Axis;
  Axis Horizontal();
  Axis Vertical();

  brelmon::Control* control_ = nullptr;
  Ref<IObject> other_;
  Anchor x_, y_, x2_, y2_, xSize_, ySize_;
};

}  // namespace brelmon
