// SPDX-License-Identifier: GPL-2.0-or-later
// The host's selection by location.
#pragma once

#include "layertools/hostcommand.h"

namespace brelmon {

class cmdSelByLocation : public HostCommand {
 public:
  cmdSelByLocation();
};

}  // namespace brelmon
