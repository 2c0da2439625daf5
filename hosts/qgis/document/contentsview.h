// SPDX-License-Identifier: GPL-2.0-or-later
// The Layers panel as the document's contents view.
#pragma once

#include "platform/map.h"

namespace brelmon::qgis {

/// 0 is "Display", 1 "Source", 2 "Selection"; out of bounds fails with 9. Each is one object.
Ref<IContentsView> ContentsViewAt(std::int32_t index);
/// "Display" as long as the Layers panel can be seen; else "Selection", which shows no layers.
Ref<IContentsView> CurrentContents();
/// Shows the Layers panel for "Display" and "Source".
void BringToFront(const Ref<IContentsView>& view);

/// What is selected in the Layers panel: unset, a layer, a table, a map, or a set of them.
Ref<IObject> ContentsSelection();

}  // namespace brelmon::qgis
