// SPDX-License-Identifier: GPL-2.0-or-later
// The host's selection by location.
#include "layertools/cmdSelByLocation.h"

namespace brelmon {

cmdSelByLocation::cmdSelByLocation()
    : HostCommand(u"cmdSelByLocation", hostcommand::kSelectByLocation) {}

}  // namespace brelmon
