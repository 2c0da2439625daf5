// SPDX-License-Identifier: GPL-2.0-or-later
// The host's statistics of selected features.
#pragma once

#include "layertools/hostcommand.h"

namespace brelmon {

class cmdHistogramStats : public HostCommand {
 public:
  cmdHistogramStats();
};

}  // namespace brelmon
