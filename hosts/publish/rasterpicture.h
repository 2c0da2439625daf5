// SPDX-License-Identifier: GPL-2.0-or-later
// A raster as a picture in another reference system.
#pragma once

#include <array>
#include <string>

#include "hosts/publish/rasterstyle.h"

class OGRSpatialReference;

namespace brelmon::publish {

/// Writes a PNG of at most 4096 pixels a side; gives xMin, yMin, xMax, yMax in the target system.
/// `from` is the raster's own system where null. Throws std::runtime_error with the reason.
std::array<double, 4> WritePicture(const std::string& raster, RasterStyle style,
                                   const OGRSpatialReference* from, const OGRSpatialReference* to,
                                   const std::string& file);

}  // namespace brelmon::publish
