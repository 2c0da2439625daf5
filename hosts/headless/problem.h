// SPDX-License-Identifier: GPL-2.0-or-later
// Why an item of the contents isn't valid.
#pragma once

#include <string>

#include "platform/object.h"

namespace brelmon::headless {

class IProblem : public virtual IObject {
 public:
  /// In UTF-8, as it follows "not opened: "; empty for a valid item.
  virtual std::string Problem() = 0;
};

}  // namespace brelmon::headless
