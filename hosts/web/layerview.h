// SPDX-License-Identifier: GPL-2.0-or-later
// What the page draws of a layer: its shapes, and of each what it looks like at present.
#pragma once

#include "hosts/web/items.h"
#include "hosts/web/json.h"

namespace brelmon::web {

/// One for each shape: the number of its class of symbols, and this bit where it is selected.
inline constexpr std::uint16_t kSelectedShape = 0x8000;
inline constexpr std::uint16_t kHiddenShape = 0x7FFF;

/// Writes where in the program's memory the layer's arrays begin and how long they are (`xy`,
/// `partEnds`, `shapeEnds`, `kinds`, `bounds`, `states`). The states hold until the next call.
void DescribeShapes(ITableItem& layer, Json& json);

}  // namespace brelmon::web
