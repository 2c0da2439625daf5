// SPDX-License-Identifier: GPL-2.0-or-later
// One item of a dialog's list, which is a feature layer or else a standalone table.
#pragma once

#include <cstdint>

#include "platform/application.h"
#include "platform/map.h"

namespace brelmon {

/// Rows of the item. Anything but a feature layer is taken for a standalone table, else fails
/// with 13.
Ref<ITable> TableOf(const Ref<IObject>& item);
/// Fails with 91 where the item has no selection set.
std::int32_t SelectedCount(const Ref<IObject>& item);
/// "Shapefile Feature Class" of a layer, "Shapefile" of a table, or the like.
Text SourceText(const Ref<IObject>& item);

/// Selects what isn't selected and the other way round, and redraws the selection.
void SwitchSelection(const Ref<IApplication>& application, const Ref<IObject>& item);

}  // namespace brelmon
