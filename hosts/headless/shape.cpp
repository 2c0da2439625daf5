// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes and reference systems.
#include "hosts/headless/shape.h"

#include <stdexcept>

#include "hosts/common/hostfailure.h"
#include "hosts/data/openpolicy.h"

namespace brelmon::headless {
namespace {

using Transformation = std::unique_ptr<OGRCoordinateTransformation>;

/// Null where nothing is to be done.
Transformation Between(const OGRSpatialReference* from, const OGRSpatialReference* to) {
  if (from == nullptr || to == nullptr || from->IsSame(to)) return nullptr;
  return Transformation(OGRCreateCoordinateTransformation(from, to));
}

}  // namespace

GeometryPtr Shape::In(const OGRSpatialReference* target) const {
  GeometryPtr copy(geometry_->clone());
  const Transformation transformation = Between(crs_.get(), target);
  if (transformation && copy->transform(transformation.get()) != OGRERR_NONE) {
    host::Fail(failure::kInvalidCall,
               "The shape can't be brought into the layer's reference system.");
  }
  return copy;
}

std::shared_ptr<const OGRSpatialReference> ReferenceSystemOf(const std::string& definition) {
  if (definition.empty()) return nullptr;
  return data::ReferenceSystemIn(definition);
}

OGREnvelope Transformed(const OGREnvelope& extent, const OGRSpatialReference* from,
                        const OGRSpatialReference* to) {
  constexpr int kPointsAnEdge = 21;
  const Transformation transformation = Between(from, to);
  OGREnvelope box = extent;
  if (transformation &&
      !transformation->TransformBounds(extent.MinX, extent.MinY, extent.MaxX, extent.MaxY,
                                       &box.MinX, &box.MinY, &box.MaxX, &box.MaxY, kPointsAnEdge)) {
    return extent;
  }
  return box;
}

GeometryPtr GeometryOfWkt(const std::string& wkt) {
  OGRGeometry* geometry = nullptr;
  const char* text = wkt.c_str();
  const OGRErr error = OGRGeometryFactory::createFromWkt(&text, nullptr, &geometry);
  GeometryPtr owner(geometry);
  if (error != OGRERR_NONE || !owner || *text != '\0' || owner->IsEmpty()) {
    throw std::runtime_error("not a well-known text of a shape: " + wkt);
  }
  return owner;
}

}  // namespace brelmon::headless
