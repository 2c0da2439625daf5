// SPDX-License-Identifier: GPL-2.0-or-later
// Graphics that a student draws on the map.
#pragma once

#include <memory>

#include "hosts/web/shapes.h"
#include "platform/geometry.h"

namespace brelmon::web {

/// One shape in the map's reference system.
struct ShapeObject : public IGeometry {
  explicit ShapeObject(ShapeStore store) : Store(std::move(store)) {}
  ShapeStore Store;
};

class GraphicsLayer : public IGraphicsContainerSelect {
 public:
  /// The selected ones, in place of those before.
  void Select(std::vector<ShapeStore> shapes);
  std::int32_t ElementSelectionCount() override {
    return static_cast<std::int32_t>(selected_.size());
  }
  Ref<IEnumElement> SelectedElements() override;

 private:
  std::vector<Ref<IElement>> selected_;
};

}  // namespace brelmon::web
