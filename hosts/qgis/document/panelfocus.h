// SPDX-License-Identifier: GPL-2.0-or-later
// The focus follows the hand: the data frame of what is selected in the Layers panel.
#pragma once

#include <functional>
#include <memory>

class QgsLayerTreeView;

namespace brelmon::qgis {

/// Follows the panel as long as it lives.
class PanelFocus {
 public:
  virtual ~PanelFocus() = default;
  /// `changed` runs when the focus has moved.
  static std::unique_ptr<PanelFocus> Start(QgsLayerTreeView& panel, std::function<void()> changed);
};

}  // namespace brelmon::qgis
