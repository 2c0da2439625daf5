// SPDX-License-Identifier: GPL-2.0-or-later
// A modeless frame's grip on its form: weak, since the form holds its frame, and firm while a user
// can see it.
#pragma once

#include <cmath>
#include <memory>

#include "hosts/common/hostfailure.h"
#include "toolkit/form.h"

namespace brelmon::host {

class HeldForm {
 public:
  /// Fails with 5 for what is no form.
  void Take(const Ref<IObject>& object) {
    const auto form = object.TryAs<Form>();
    if (!form) Fail(failure::kInvalidCall, "A modeless frame holds a form.");
    form_ = form.Shared();
  }
  std::shared_ptr<Form> Lock() const { return form_.lock(); }
  /// Fails with 91 where there is none, or no longer.
  std::shared_ptr<Form> Get() const {
    auto form = form_.lock();
    if (!form) Fail(failure::kObjectNotSet);
    return form;
  }
  /// Tells the form, which it holds from now on or lets go of.
  void Show(bool visible) {
    const auto form = Get();
    shown_ = visible ? form : nullptr;
    form->SetVisibleInFrame(visible);
  }
  static std::int32_t Pixels(Twips twips) {
    return static_cast<std::int32_t>(std::lround(twips / kTwipsPerPixel));
  }
  std::int32_t Width() const { return Pixels(Get()->Width()); }
  std::int32_t Height() const { return Pixels(Get()->Height()); }

 private:
  std::weak_ptr<Form> form_;
  std::shared_ptr<Form> shown_;
};

}  // namespace brelmon::host
