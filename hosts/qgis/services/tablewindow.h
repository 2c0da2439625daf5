// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS's attribute tables, one window a layer.
#pragma once

#include "platform/windows.h"

namespace brelmon::qgis {

/// The same object offers ITableWindow2.
Ref<ITableWindow> NewTableWindow();

}  // namespace brelmon::qgis
