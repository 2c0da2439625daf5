// SPDX-License-Identifier: GPL-2.0-or-later
// Graphics that are selected on a map.
#pragma once

#include <vector>

#include "platform/geometry.h"

namespace brelmon::document {

Ref<IElement> NewElement(Ref<IGeometry> geometry);

class GraphicsLayer : public IGraphicsContainerSelect {
 public:
  void Select(std::vector<Ref<IElement>> elements) { selected_ = std::move(elements); }
  std::int32_t ElementSelectionCount() override {
    return static_cast<std::int32_t>(selected_.size());
  }
  Ref<IEnumElement> SelectedElements() override;

 private:
  std::vector<Ref<IElement>> selected_;
};

}  // namespace brelmon::document
