// SPDX-License-Identifier: GPL-2.0-or-later
// Whether the files that make up a shapefile or a dBASE table are whole and agree.
#pragma once

#include <string>

namespace brelmon::data {

/// What is wrong with the parts of the .shp or .dbf file, local or in an archive; empty where
/// nothing is, and for any other path.
std::string DamageOfShapefile(const std::string& path);

}  // namespace brelmon::data
