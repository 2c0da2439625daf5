// SPDX-License-Identifier: GPL-2.0-or-later
// The form of a modeless frame.
#pragma once

#include <cmath>
#include <memory>

#include "hosts/common/hostfailure.h"
#include "toolkit/form.h"

namespace brelmon::host {

/// Twips as whole pixels of 96 an inch, whatever the screen's scale.
inline std::int32_t WholePixels(Twips twips) {
  return static_cast<std::int32_t>(std::lround(twips / kTwipsPerPixel));
}

/// The form holds its frame, so the frame holds the form only for as long as a user can see it.
class HeldForm {
 public:
  /// Fails with 91 for an unset one.
  void Hold(const Ref<IObject>& form) {
    const Ref<Form> own = form.As<Form>(0);
    if (!own) Fail(failure::kObjectNotSet);
    form_ = own.Shared();
  }
  std::shared_ptr<Form> IfThere() const { return form_.lock(); }
  /// Fails with 91 once it is gone, or before one is held.
  std::shared_ptr<Form> There() const {
    auto form = form_.lock();
    if (!form) Fail(failure::kObjectNotSet);
    return form;
  }
  /// Tells the form, too. Fails as There does.
  void SetVisible(bool visible) {
    const auto form = There();
    shown_ = visible ? form : nullptr;
    form->SetVisibleInFrame(visible);
  }

 private:
  std::weak_ptr<Form> form_;
  std::shared_ptr<Form> shown_;
};

}  // namespace brelmon::host
