// SPDX-License-Identifier: GPL-2.0-or-later
// The host's selection by attributes.
#include "layertools/cmdSelByAttributes.h"

namespace brelmon {

cmdSelByAttributes::cmdSelByAttributes()
    : HostCommand(u"cmdSelByAttributes", u"{54EBEEE6-DC82-11D1-AA7F-00C04FA37860}") {}

}  // namespace brelmon
