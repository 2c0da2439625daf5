// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes that a student draws on the map.
#pragma once

#include "hosts/web/shapes.h"
#include "platform/geometry.h"

namespace brelmon::web {

/// One shape in the map's reference system.
struct ShapeObject : public IGeometry {
  explicit ShapeObject(ShapeStore store) : Store(std::move(store)) {}
  ShapeStore Store;
};

}  // namespace brelmon::web
