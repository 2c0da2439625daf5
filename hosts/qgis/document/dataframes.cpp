// SPDX-License-Identifier: GPL-2.0-or-later
// Which groups of the layer tree are data frames.
#include "hosts/qgis/document/dataframes.h"

#include <qgisinterface.h>
#include <qgslayertree.h>
#include <qgslayertreegroup.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>

#include <QPointer>
#include <algorithm>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"

namespace brelmon::qgis {
namespace {

/// The frame that was brought into focus last; its project may be gone.
struct LastInFocus {
  QPointer<QgsLayerTreeGroup> frame;
};

LastInFocus& Last() { return Session::Running().Of<LastInFocus>(); }

}  // namespace

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

QgsLayerTreeGroup* FrameAround(QgsLayerTreeNode& node) {
  for (QgsLayerTreeNode* at = &node; at; at = at->parent()) {
    if (IsMarkedFrame(*at)) return QgsLayerTree::toGroup(at);
  }
  return nullptr;
}

QgsLayerTreeGroup* FocusNode() {
  const auto frames = FrameNodes();
  const auto visible = [](const QgsLayerTreeGroup* frame) {
    return frame->itemVisibilityChecked();
  };
  const bool any = std::any_of(frames.begin(), frames.end(), visible);
  const auto last = std::find(frames.begin(), frames.end(), Last().frame.data());
  if (last != frames.end() && (visible(*last) || !any)) return *last;
  return any ? *std::find_if(frames.begin(), frames.end(), visible) : frames.front();
}

void BringIntoFocus(QgsLayerTreeGroup& frame) {
  Last().frame = &frame;
  frame.setItemVisibilityChecked(true);
}

void FocusOn(QgsLayerTreeGroup& frame) {
  BringIntoFocus(frame);
  for (QgsLayerTreeGroup* other : FrameNodes()) {
    if (other != &frame) other->setItemVisibilityChecked(false);
  }
  SelectInPanel(frame);
}

void SelectInPanel(QgsLayerTreeGroup& frame) {
  QgsLayerTreeView& panel = *Iface().layerTreeView();
  const QModelIndex index = panel.node2index(&frame);
  if (index.isValid()) panel.setCurrentIndex(index);
}

}  // namespace brelmon::qgis
