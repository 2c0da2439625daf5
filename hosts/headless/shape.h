// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes with the reference system that their numbers are in.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>

#include "platform/geometry.h"

namespace brelmon::headless {

using GeometryPtr = std::unique_ptr<OGRGeometry>;

class Shape : public IGeometry {
 public:
  Shape(GeometryPtr geometry, std::shared_ptr<const OGRSpatialReference> crs)
      : geometry_(std::move(geometry)), crs_(std::move(crs)) {}
  const OGRGeometry& Geometry() const { return *geometry_; }

  /// A copy in `target`. Where either system is unknown the numbers stay. Fails with 5 where the
  /// shape has no place in the target.
  GeometryPtr In(const OGRSpatialReference* target) const;

 private:
  GeometryPtr geometry_;
  std::shared_ptr<const OGRSpatialReference> crs_;
};

/// "EPSG:4326", a WKT or the like, in traditional axis order; null for a text that tells nothing.
std::shared_ptr<const OGRSpatialReference> ReferenceSystemOf(const std::string& definition);

/// The box of `extent` in another system; unchanged where either is unknown or nothing fits.
OGREnvelope Transformed(const OGREnvelope& extent, const OGRSpatialReference* from,
                        const OGRSpatialReference* to);

/// Throws std::runtime_error with the reason for a text that is no well-known text.
GeometryPtr GeometryOfWkt(const std::string& wkt);

}  // namespace brelmon::headless
