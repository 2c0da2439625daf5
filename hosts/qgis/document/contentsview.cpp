// SPDX-License-Identifier: GPL-2.0-or-later
// The Layers panel as the document's contents view.
#include "hosts/qgis/document/contentsview.h"

#include <qgisinterface.h>
#include <qgsdockwidget.h>
#include <qgslayertree.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>

#include <QMainWindow>
#include <array>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/document/dataframes.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"

namespace brelmon::qgis {
namespace {

constexpr std::array<TextView, 3> kNames = {u"Display", u"Source", u"Selection"};
constexpr std::int32_t kSelectionTab = 2;

QgsLayerTreeView& Tree() { return *Iface().layerTreeView(); }

QgsDockWidget* Panel() {
  return Iface().mainWindow()->findChild<QgsDockWidget*>(QStringLiteral("Layers"));
}

QgsLayerTreeNode* NodeIn(const Ref<IObject>& item) {
  if (QgsLayerTreeGroup* frame = NodeOf(item)) return frame;
  const auto layer = item.TryAs<IQgisLayer>();
  QgsMapLayer* there = layer ? layer->LayerIfThere() : nullptr;
  return there ? QgsProject::instance()->layerTreeRoot()->findLayer(there->id()) : nullptr;
}

Ref<IObject> ItemOf(QgsLayerTreeNode& node) {
  if (QgsLayerTree::isLayer(&node)) {
    QgsMapLayer* layer = QgsLayerTree::toLayer(&node)->layer();
    return layer ? ObjectOf(*layer) : Ref<IObject>();
  }
  QgsLayerTreeGroup& group = *QgsLayerTree::toGroup(&node);
  return IsMarkedFrame(group) ? Ref<IObject>(FrameOf(group)) : ObjectOf(group);
}

class View : public virtual IContentsView {
 public:
  explicit View(std::int32_t index) : index_(index) {}
  Text Name() override { return Text(kNames[static_cast<std::size_t>(index_)]); }
  Value SelectedItem() override {
    const auto item = ContentsSelection();
    return item ? Value(item) : Value(Null{});
  }
  void RemoveFromSelectedItems(const Ref<IObject>& item) override {
    QgsLayerTreeNode* node = NodeIn(item);
    if (!node) return;
    const QModelIndex index = Tree().node2index(node);
    Tree().selectionModel()->select(index, QItemSelectionModel::Deselect);
  }
  // The panel follows its tree by itself.
  void Refresh(const Ref<IObject>&) override { Tree().viewport()->update(); }

 private:
  std::int32_t index_;
};

struct Views {
  const std::array<Ref<IContentsView>, 3> all = {New<View>(0), New<View>(1), New<View>(2)};
};

}  // namespace

Ref<IContentsView> ContentsViewAt(std::int32_t index) {
  if (index < 0 || index > kSelectionTab) host::Fail(failure::kSubscript);
  return Session::Running().Of<Views>().all[static_cast<std::size_t>(index)];
}

Ref<IContentsView> CurrentContents() {
  const QgsDockWidget* panel = Panel();
  return ContentsViewAt(!panel || panel->isUserVisible() ? 0 : kSelectionTab);
}

void BringToFront(const Ref<IContentsView>& view) {
  if (!view) host::Fail(failure::kObjectNotSet);
  QgsDockWidget* panel = Panel();
  if (panel && view->Name() != kNames[kSelectionTab]) panel->setUserVisible(true);
}

Ref<IObject> ContentsSelection() {
  std::vector<Ref<IObject>> items;
  for (QgsLayerTreeNode* node : Tree().selectedNodes()) {
    if (auto item = ItemOf(*node)) items.push_back(std::move(item));
  }
  if (items.empty()) return {};
  if (items.size() == 1) return items.front();
  return host::NewSet(std::move(items));
}

}  // namespace brelmon::qgis
