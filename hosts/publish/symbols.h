// SPDX-License-Identifier: GPL-2.0-or-later
// A layer's renderer as symbols of a page.
#pragma once

#include <string>
#include <vector>

#include "hosts/columns/batch.h"
#include "hosts/publish/json.h"
#include "hosts/publish/report.h"

namespace pugi {
class xml_node;
}

namespace brelmon::publish {

/// Of a <maplayer>: simple, categorized and graduated renderers. Null, which leaves the page its
/// own plain symbol, for any other, told in the report under `item`.
Json SymbolsOf(const pugi::xml_node& layer, const std::vector<columns::Field>& fields,
               const std::string& item, Report& report);

}  // namespace brelmon::publish
