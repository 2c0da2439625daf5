// SPDX-License-Identifier: GPL-2.0-or-later
// The host's selection by attributes.
#pragma once

#include "layertools/hostcommand.h"

namespace brelmon {

class cmdSelByAttributes : public HostCommand {
 public:
  cmdSelByAttributes();
};

}  // namespace brelmon
