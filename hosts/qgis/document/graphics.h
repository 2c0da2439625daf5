// SPDX-License-Identifier: GPL-2.0-or-later
// The graphics that the user has selected on the map: items of annotation layers.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "platform/geometry.h"

class QgsMapCanvas;

namespace brelmon::qgis {

struct GraphicId {
  QString layer;  // empty: the project's main annotation layer
  QString item;
};

/// Follows the canvas's tool that modifies annotations, as long as it lives.
class GraphicsWatch {
 public:
  virtual ~GraphicsWatch() = default;
  static std::unique_ptr<GraphicsWatch> Start(QgsMapCanvas& canvas, std::function<void()> changed);
};

/// Replaces what is selected.
void SelectGraphics(std::vector<GraphicId> graphics);
Ref<IGraphicsContainerSelect> SelectedGraphics();

}  // namespace brelmon::qgis
