// SPDX-License-Identifier: GPL-2.0-or-later
// Data frames: top-level groups of the layer tree that an author has marked, else the whole tree.
#pragma once

#include <vector>

#include "platform/map.h"

class QgsLayerTreeGroup;
class QgsLayerTreeNode;

namespace brelmon::qgis {

/// Custom property of a marked group; its value is "true".
inline constexpr char kFrameProperty[] = "brelmon/dataFrame";

bool IsMarkedFrame(QgsLayerTreeNode& node);
/// Marks or unmarks a top-level group.
void MarkFrame(QgsLayerTreeGroup& group, bool frame);

/// The nodes of all data frames in order; the tree's root alone where no group is marked.
std::vector<QgsLayerTreeGroup*> FrameNodes();
/// The frame that `node` is or stands in; null if it is in none that is marked.
QgsLayerTreeGroup* FrameAround(QgsLayerTreeNode& node);
/// The frame brought into focus last, while it is visible; else the first visible one, or the
/// first of all.
QgsLayerTreeGroup* FocusNode();
/// Shows `frame`, and leaves alone what else is visible.
void BringIntoFocus(QgsLayerTreeGroup& frame);
/// Makes `frame` the only visible one and the item selected in the Layers panel.
void FocusOn(QgsLayerTreeGroup& frame);
/// Selects a marked frame, and nothing else.
void SelectInPanel(QgsLayerTreeGroup& frame);

/// The map of a frame: one object as long as anyone holds it.
Ref<IMap> FrameOf(QgsLayerTreeGroup& node);
/// A map that is no member yet.
Ref<IMap> NewFrame();
/// What becomes of a map when it is added to the document, or removed from it.
void AddFrame(const Ref<IMap>& map);
void RemoveFrame(const Ref<IMap>& map);
/// The node of a map; null if it is no member.
QgsLayerTreeGroup* NodeOf(const Ref<IObject>& map);

}  // namespace brelmon::qgis
