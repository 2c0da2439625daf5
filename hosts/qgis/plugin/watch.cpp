// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS's signals of layers, selections and the Layers panel.
#include "hosts/qgis/plugin/watch.h"

#include <qgisinterface.h>
#include <qgsdockwidget.h>
#include <qgslayertree.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <QMainWindow>

namespace brelmon::qgis {
namespace {

class WatchOfQgis : public Watch {
 public:
  WatchOfQgis(QgisInterface& iface, std::function<void()> changed) : changed_(std::move(changed)) {
    Hear(&iface, &QgisInterface::currentLayerChanged);
    Hear(iface.layerTreeView()->selectionModel(), &QItemSelectionModel::selectionChanged);
    if (auto* panel = iface.mainWindow()->findChild<QgsDockWidget*>(QStringLiteral("Layers"))) {
      Hear(panel, &QgsDockWidget::visibilityChanged);
    }
    HearProject(*QgsProject::instance());
  }

 private:
  template <class Sender, class Signal>
  void Hear(Sender* sender, Signal signal) {
    QObject::connect(sender, signal, &context_, [this] { changed_(); });
  }

  void HearProject(QgsProject& project) {
    Hear(&project, &QgsProject::readProject);
    Hear(&project, &QgsProject::cleared);
    Hear(&project, qOverload<const QStringList&>(&QgsProject::layersRemoved));
    QObject::connect(&project, &QgsProject::layersAdded, &context_,
                     [this](const QList<QgsMapLayer*>& layers) {
                       for (QgsMapLayer* layer : layers) HearLayer(layer);
                       changed_();
                     });
    for (QgsMapLayer* layer : project.mapLayers()) HearLayer(layer);
    QgsLayerTree* root = project.layerTreeRoot();
    Hear(root, &QgsLayerTreeNode::addedChildren);
    Hear(root, &QgsLayerTreeNode::removedChildren);
    Hear(root, &QgsLayerTreeNode::visibilityChanged);
    Hear(root, &QgsLayerTreeNode::customPropertyChanged);
  }

  void HearLayer(QgsMapLayer* layer) {
    Hear(layer, &QgsMapLayer::dataSourceChanged);
    auto* vector = qobject_cast<QgsVectorLayer*>(layer);
    if (!vector) return;
    Hear(vector, &QgsVectorLayer::selectionChanged);
    Hear(vector, &QgsVectorLayer::subsetStringChanged);
  }

  std::function<void()> changed_;
  QObject context_;  // ends every connection with itself
};

}  // namespace

std::unique_ptr<Watch> Watch::Start(QgisInterface& iface, std::function<void()> changed) {
  return std::make_unique<WatchOfQgis>(iface, std::move(changed));
}

}  // namespace brelmon::qgis
