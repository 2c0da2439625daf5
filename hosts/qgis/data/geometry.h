// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes with the coordinates that they are in.
#pragma once

#include <qgscoordinatereferencesystem.h>
#include <qgsgeometry.h>

#include "platform/geometry.h"

namespace brelmon::qgis {

struct PlacedGeometry {
  QgsGeometry geometry;
  QgsCoordinateReferenceSystem crs;
};

Ref<IGeometry> GeometryObject(PlacedGeometry placed);
/// An envelope is in the map's coordinates. Fails with 91 for an unset shape, 13 for a foreign one.
PlacedGeometry GeometryOf(const Ref<IGeometry>& shape);

Ref<IEnvelope> EnvelopeOf(const QgsRectangle& rectangle);
QgsRectangle RectangleOf(const Ref<IEnvelope>& envelope);

}  // namespace brelmon::qgis
