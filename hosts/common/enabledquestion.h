// SPDX-License-Identifier: GPL-2.0-or-later
// Whether a command is enabled, asked again and again.
#pragma once

#include <functional>

#include "platform/component.h"

namespace brelmon::host {

/// A failure disables the command and is told at its first asking; later ones keep quiet until one
/// goes well. The host's `Quiet` holds back the error dialog while it lives, if it is made with
/// true, and counts how often the dialog was asked for.
template <class Quiet>
class EnabledQuestion {
 public:
  /// `command` may fail, too, where it makes the command first. `tell` hears of a failure that no
  /// error dialog told.
  bool Ask(const std::function<Ref<ICommand>()>& command,
           const std::function<void(const Failure&)>& tell) {
    Quiet errors(told_);
    bool enabled = false, failed = false;
    try {
      enabled = command()->Enabled();
    } catch (...) {
      failed = true;
      if (!told_) tell(CurrentFailure());
    }
    told_ = failed || errors.Count() > 0;
    return enabled;
  }

 private:
  bool told_ = false;
};

}  // namespace brelmon::host
