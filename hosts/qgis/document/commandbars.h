// SPDX-License-Identifier: GPL-2.0-or-later
// Commands of the host's own, by identifier: QGIS's nearest to each.
#pragma once

#include "platform/application.h"

namespace brelmon::qgis {

Ref<ICommandBars> NewCommandBars();

}  // namespace brelmon::qgis
