// SPDX-License-Identifier: GPL-2.0-or-later
// The host's selection by attributes.
#include "layertools/cmdSelByAttributes.h"

namespace brelmon {

cmdSelByAttributes::cmdSelByAttributes()
    : HostCommand(u"cmdSelByAttributes", hostcommand::kSelectByAttributes) {}

}  // namespace brelmon
