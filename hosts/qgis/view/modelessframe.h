// SPDX-License-Identifier: GPL-2.0-or-later
// A window beside QGIS that a form lives in.
#pragma once

#include "platform/application.h"

namespace brelmon::qgis {

/// The same object offers IWindowPosition.
Ref<IModelessFrame> NewModelessFrame();
/// Hides those that are shown, for the end of the plug-in.
void HideModelessFrames();

}  // namespace brelmon::qgis
