// SPDX-License-Identifier: GPL-2.0-or-later
// Progress on QGIS's status bar.
#pragma once

#include "platform/application.h"

namespace brelmon::qgis {

/// Its widget leaves the status bar with the object.
Ref<IStatusBar> NewStatusBar();

}  // namespace brelmon::qgis
