// SPDX-License-Identifier: GPL-2.0-or-later
// The host's statistics of selected features.
#include "layertools/cmdHistogramStats.h"

namespace brelmon {

cmdHistogramStats::cmdHistogramStats()
    : HostCommand(u"cmdHistogramStats", hostcommand::kStatistics) {}

}  // namespace brelmon
