// SPDX-License-Identifier: GPL-2.0-or-later
// The host's statistics of selected features.
#include "layertools/cmdHistogramStats.h"

namespace brelmon {

cmdHistogramStats::cmdHistogramStats()
    : HostCommand(u"cmdHistogramStats", u"{3E58D6D0-DF7A-11D1-ADD9-080009EC732A}") {}

}  // namespace brelmon
