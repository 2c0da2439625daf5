// SPDX-License-Identifier: GPL-2.0-or-later
// Elements over shapes.
#include "hosts/document/graphics.h"

#include "hosts/common/objectlists.h"

namespace brelmon::document {
namespace {

class Element : public IElement {
 public:
  explicit Element(Ref<IGeometry> geometry) : geometry_(std::move(geometry)) {}
  Ref<IGeometry> Geometry() override { return geometry_; }

 private:
  Ref<IGeometry> geometry_;
};

}  // namespace

Ref<IElement> NewElement(Ref<IGeometry> geometry) { return New<Element>(std::move(geometry)); }

Ref<IEnumElement> GraphicsLayer::SelectedElements() { return host::NewEnumElement(selected_); }

}  // namespace brelmon::document
