// SPDX-License-Identifier: GPL-2.0-or-later
// Layer definition files (.qlr) as layer files of one layer each.
#pragma once

#include "platform/windows.h"

namespace brelmon::qgis {

/// The same object offers IGxFile and IGxObject.
Ref<IGxLayer> NewGxLayer();

}  // namespace brelmon::qgis
