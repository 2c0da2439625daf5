// SPDX-License-Identifier: GPL-2.0-or-later
// The host's part in showing a form.
#pragma once

#include "toolkit/form.h"

namespace brelmon {

class IFormHost {
 public:
  virtual ~IFormHost() = default;
  /// Shows `form`, feeds its events, and returns once it is hidden or unloaded. A host in which
  /// nobody answers the form fails instead of waiting.
  virtual void ShowModal(Form& form) = 0;
};

}  // namespace brelmon
