// SPDX-License-Identifier: GPL-2.0-or-later
// The host's selection by location.
#include "layertools/cmdSelByLocation.h"

namespace brelmon {

cmdSelByLocation::cmdSelByLocation()
    : HostCommand(u"cmdSelByLocation", u"{82B9951B-DD63-11D1-AA7F-00C04FA37860}") {}

}  // namespace brelmon
