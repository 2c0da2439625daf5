// SPDX-License-Identifier: GPL-2.0-or-later
// Which groups of the layer tree are data frames.
#include "hosts/qgis/document/dataframes.h"

#include <qgslayertree.h>
#include <qgslayertreegroup.h>
#include <qgsproject.h>

namespace brelmon::qgis {

bool IsMarkedFrame(QgsLayerTreeNode& node) {
  return QgsLayerTree::isGroup(&node) && node.parent() && !node.parent()->parent() &&
         node.customProperty(QString::fromLatin1(kFrameProperty)).toString() ==
             QLatin1String("true");
}

void MarkFrame(QgsLayerTreeGroup& group, bool frame) {
  const QString key = QString::fromLatin1(kFrameProperty);
  if (frame) {
    group.setCustomProperty(key, QStringLiteral("true"));
  } else {
    group.removeCustomProperty(key);
  }
  QgsProject::instance()->setDirty();
}

std::vector<QgsLayerTreeGroup*> FrameNodes() {
  std::vector<QgsLayerTreeGroup*> frames;
  QgsLayerTree* root = QgsProject::instance()->layerTreeRoot();
  for (QgsLayerTreeNode* node : root->children()) {
    if (IsMarkedFrame(*node)) frames.push_back(QgsLayerTree::toGroup(node));
  }
  if (frames.empty()) frames.push_back(root);
  return frames;
}

QgsLayerTreeGroup* FocusNode() {
  const auto frames = FrameNodes();
  for (QgsLayerTreeGroup* frame : frames) {
    if (frame->itemVisibilityChecked()) return frame;
  }
  return frames.front();
}

void FocusOn(QgsLayerTreeGroup& frame) {
  frame.setItemVisibilityChecked(true);
  for (QgsLayerTreeGroup* other : FrameNodes()) {
    if (other != &frame) other->setItemVisibilityChecked(false);
  }
}

}  // namespace brelmon::qgis
