// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes with the coordinates that they are in.
#include "hosts/qgis/data/geometry.h"

#include <qgsproject.h>

#include "hosts/common/objectlists.h"

namespace brelmon::qgis {
namespace {

class Shape : public virtual IGeometry {
 public:
  explicit Shape(PlacedGeometry placed) : placed_(std::move(placed)) {}
  const PlacedGeometry& Placed() const { return placed_; }

 private:
  PlacedGeometry placed_;
};

}  // namespace

Ref<IGeometry> GeometryObject(PlacedGeometry placed) {
  return Ref<IGeometry>(std::make_shared<Shape>(std::move(placed)));
}

PlacedGeometry GeometryOf(const Ref<IGeometry>& shape) {
  if (const auto envelope = shape.TryAs<IEnvelope>()) {
    return {QgsGeometry::fromRect(RectangleOf(envelope)), QgsProject::instance()->crs()};
  }
  return shape.As<Shape>(0)->Placed();
}

Ref<IEnvelope> EnvelopeOf(const QgsRectangle& rectangle) {
  auto envelope = host::NewEnvelope();
  envelope->PutCoords(rectangle.xMinimum(), rectangle.yMinimum(), rectangle.xMaximum(),
                      rectangle.yMaximum());
  return envelope;
}

QgsRectangle RectangleOf(const Ref<IEnvelope>& envelope) {
  double xMin = 0, yMin = 0, xMax = 0, yMax = 0;
  envelope->QueryCoords(xMin, yMin, xMax, yMax);
  return QgsRectangle(xMin, yMin, xMax, yMax);
}

}  // namespace brelmon::qgis
