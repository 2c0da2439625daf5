// SPDX-License-Identifier: GPL-2.0-or-later
// Layers of QGIS as objects of the platform: one object a layer as long as anyone holds it.
#pragma once

#include <memory>

#include "platform/map.h"

class QgsLayerTreeGroup;
class QgsLayerTreeNode;
class QgsMapLayer;
class QgsVectorLayer;

namespace brelmon::qgis {

/// Offered by every object that stands for a layer of QGIS.
class IQgisLayer : public virtual IObject {
 public:
  /// Null once the layer is gone, or while the object is bound to nothing.
  virtual QgsMapLayer* LayerIfThere() = 0;
  /// Hands a layer that no project holds yet over to the caller; null for any other.
  virtual QgsMapLayer* Release() = 0;
};

/// The object of a layer of the project: a feature layer, a standalone table, or an ILayer alone.
Ref<IObject> ObjectOf(QgsMapLayer& layer);
/// A group that is no data frame: an ILayer alone.
Ref<IObject> ObjectOf(QgsLayerTreeGroup& group);

/// The object of a layer that no project holds; it owns the layer until it is released.
Ref<IObject> ObjectOwning(std::unique_ptr<QgsMapLayer> layer);
/// From now on `object` is what ObjectOf gives for its layer.
void Remember(const Ref<IQgisLayer>& object);

/// Whether it is what the tools call a standalone table.
bool IsTable(const QgsMapLayer& layer);

/// The vector layer behind a feature layer or table; fails with 424 once it is gone and with 13
/// for any other object.
QgsVectorLayer& VectorLayerOf(const Ref<IObject>& object);
/// A standalone table bound to nothing.
Ref<IStandaloneTable> NewTable();

}  // namespace brelmon::qgis
