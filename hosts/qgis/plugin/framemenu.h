// SPDX-License-Identifier: GPL-2.0-or-later
// The entries of the Layers panel's menu by which an author makes and shows data frames.
#pragma once

#include <memory>

class QgsLayerTreeView;

namespace brelmon::qgis {

class FrameMenu {
 public:
  virtual ~FrameMenu() = default;
  static std::unique_ptr<FrameMenu> Install(QgsLayerTreeView& panel);
};

}  // namespace brelmon::qgis
