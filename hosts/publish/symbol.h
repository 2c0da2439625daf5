// SPDX-License-Identifier: GPL-2.0-or-later
// One symbol of a renderer.
#pragma once

#include <string>

#include "hosts/publish/json.h"

namespace pugi {
class xml_node;
}

namespace brelmon::publish {

/// Of a <symbol>: shape, size, fill, stroke, width and dash in pixels at 96 to the inch, as far as
/// its layers are simple. Null where none of them is. `loss` says what was left out.
Json SymbolOf(const pugi::xml_node& symbol, std::string& loss);

}  // namespace brelmon::publish
