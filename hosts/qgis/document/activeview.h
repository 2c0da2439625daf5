// SPDX-License-Identifier: GPL-2.0-or-later
// The map canvas as the view of the frame in focus.
#pragma once

#include <QList>

#include "platform/geometry.h"

class QgsMapLayer;

namespace brelmon::qgis {

void RefreshCanvas(DrawPhase phase);
Ref<IEnvelope> CanvasExtent();
/// In the canvas's coordinates; layers without an extent, or whose extent can't be brought into
/// them, count for nothing. Empty (all 0) where none is left.
Ref<IEnvelope> ExtentOf(const QList<QgsMapLayer*>& layers);
Ref<IDisplay> CanvasDisplay();

}  // namespace brelmon::qgis
