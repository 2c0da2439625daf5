// SPDX-License-Identifier: GPL-2.0-or-later
// The user in front of the forms: what to click and type when a form appears.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/application.h"
#include "platform/collection.h"
#include "toolkit/formhost.h"

namespace brelmon::headless {

/// Answers modal forms by their names.
class FormUser : public IFormHost {
 public:
  using Hands = std::function<void(Form&)>;
  /// Whoever is registered under a form's name works it each time it appears.
  void Register(const Text& form, Hands hands) { hands_[form] = std::move(hands); }
  void Forget(const Text& form) { hands_.erase(form); }
  void ForgetAll() { hands_.clear(); }

  /// A form that nobody answers, or that stands open when the user is through with it, is hidden
  /// and fails with 445.
  void ShowModal(Form& form) override;

 private:
  std::map<Text, Hands, NoCaseLess> hands_;
};

/// The modeless frames of the session; their end hides them.
class ModelessFrames {
 public:
  ModelessFrames();
  ~ModelessFrames();
  Ref<IModelessFrame> NewFrame();
  /// Forms whose frames are visible, in the order in which the frames were made.
  std::vector<std::shared_ptr<Form>> Visible() const;

 private:
  class Frame;
  std::vector<std::weak_ptr<Frame>> frames_;
};

}  // namespace brelmon::headless
