// SPDX-License-Identifier: GPL-2.0-or-later
// Elements over shapes.
#include "hosts/web/graphics.h"

#include "hosts/common/objectlists.h"

namespace brelmon::web {
namespace {

class Element : public IElement {
 public:
  explicit Element(ShapeStore shape) : geometry_(New<ShapeObject>(std::move(shape))) {}
  Ref<IGeometry> Geometry() override { return geometry_; }

 private:
  Ref<IGeometry> geometry_;
};

}  // namespace

void GraphicsLayer::Select(std::vector<ShapeStore> shapes) {
  selected_.clear();
  for (ShapeStore& shape : shapes) selected_.push_back(New<Element>(std::move(shape)));
}

Ref<IEnumElement> GraphicsLayer::SelectedElements() { return host::NewEnumElement(selected_); }

}  // namespace brelmon::web
