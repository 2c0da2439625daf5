// SPDX-License-Identifier: GPL-2.0-or-later
// A data frame as a map: its layers, its tables, its view.
#include <qgisinterface.h>
#include <qgslayertree.h>
#include <qgslayertreelayer.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>
#include <qgsvectorlayertools.h>

#include <QPointer>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/document/activeview.h"
#include "hosts/qgis/document/dataframes.h"
#include "hosts/qgis/document/graphics.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

bool InNoFrame(QgsLayerTreeNode& node) { return !IsMarkedFrame(node); }

/// Everything below `group` in tree order that `take` accepts.
template <class Take>
void Walk(QgsLayerTreeGroup& group, bool recursive, Take take) {
  for (QgsLayerTreeNode* node : group.children()) {
    take(*node);
    if (recursive && QgsLayerTree::isGroup(node)) Walk(*QgsLayerTree::toGroup(node), true, take);
  }
}

QgsMapLayer* LayerOf(QgsLayerTreeNode& node) {
  return QgsLayerTree::isLayer(&node) ? QgsLayerTree::toLayer(&node)->layer() : nullptr;
}

/// Asks what to do about unsaved edits, as QGIS's own removal does. A user who would rather keep
/// the layer ends the turn.
void EndEditing(QgsMapLayer& layer) {
  auto* vector = qobject_cast<QgsVectorLayer*>(&layer);
  if (!vector || !vector->isEditable()) return;
  if (Iface().vectorLayerTools()->stopEditing(vector, true)) return;
  EndTurn(failure::kUserInterrupt, {});
}

int EntriesOf(const QgsMapLayer& layer) {
  int entries = 0;
  for (const QgsLayerTreeLayer* entry : QgsProject::instance()->layerTreeRoot()->findLayers()) {
    entries += entry->layerId() == layer.id();
  }
  return entries;
}

class DataFrame : public virtual IMap,
                  public virtual IStandaloneTableCollection,
                  public virtual IActiveView {
 public:
  explicit DataFrame(QgsLayerTreeGroup* node) : node_(node) {}

  QgsLayerTreeGroup* NodeIfThere() const { return node_; }
  bool Gone() const { return bound_ && !node_; }
  void Bind(QgsLayerTreeGroup* node) {
    node_ = node;
    bound_ = node != nullptr;
  }

  Text Name() override {
    if (!bound_) return name_;
    return IsTree() ? Text(u"Layers") : FromQt(Node().name());
  }
  void SetName(const Text& name) override {
    if (!bound_) {
      name_ = name;
    } else if (IsTree()) {
      host::Fail(failure::kNotSupported, u"A map document without data frames has no name to set.");
    } else {
      Node().setName(ToQt(name));
    }
  }

  std::int32_t LayerCount() override {
    return static_cast<std::int32_t>(bound_ ? Layers(false, false).size() : 0);
  }
  Ref<IEnumLayer> Layers(const Ref<UID>& uid, bool recursive) override {
    const bool known = !uid || EqualNoCase(uid->Value, kFeatureLayerUID);
    auto layers = known ? Layers(uid ? true : false, recursive) : std::vector<Ref<ILayer>>();
    if (layers.empty()) host::Fail(failure::kRefused, u"The data frame has no such layers.");
    return host::NewEnumLayer(std::move(layers));
  }
  void AddLayer(const Ref<ILayer>& layer) override { Insert(layer.As<IQgisLayer>(0)); }
  void DeleteLayer(const Ref<ILayer>& layer) override { Remove(layer.As<IObject>()); }
  void SetExpanded(bool expanded) override {
    if (bound_) Node().setExpanded(expanded);
    expanded_ = expanded;
  }
  Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() override { return SelectedGraphics(); }

  std::int32_t StandaloneTableCount() override {
    return static_cast<std::int32_t>(Tables().size());
  }
  Ref<IStandaloneTable> StandaloneTable(std::int32_t index) override {
    const auto tables = Tables();
    if (index < 0 || static_cast<std::size_t>(index) >= tables.size())
      host::Fail(failure::kSubscript);
    return ObjectOf(*tables[static_cast<std::size_t>(index)]).As<IStandaloneTable>(0);
  }
  void AddStandaloneTable(const Ref<IStandaloneTable>& table) override {
    Insert(table.As<IQgisLayer>(0));
  }
  void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) override {
    Remove(table.As<IObject>());
  }

  void PartialRefresh(DrawPhase phase, const Ref<IObject>&, const Ref<IEnvelope>&) override {
    if (InFocus()) RefreshCanvas(phase);
  }
  void Refresh() override {
    if (InFocus()) RefreshCanvas(DrawPhase::GeographyAndSelection);
  }
  Ref<IEnvelope> Extent() override { return CanvasExtent(); }
  Ref<IEnvelope> FullExtent() override {
    QList<QgsMapLayer*> layers;
    Walk(Node(), true, [&](QgsLayerTreeNode& node) {
      if (QgsMapLayer* layer = LayerOf(node)) layers.push_back(layer);
    });
    return ExtentOf(layers);
  }
  Ref<IDisplay> ScreenDisplay() override { return CanvasDisplay(); }

 private:
  QgsLayerTreeGroup& Node() const {
    if (!node_) host::Fail(failure::kNoSuchObject, u"The data frame is not in the document.");
    return *node_;
  }
  bool IsTree() const { return !Node().parent(); }
  bool InFocus() const { return node_ && FocusNode() == node_; }

  std::vector<Ref<ILayer>> Layers(bool featureLayersOnly, bool recursive) const {
    std::vector<Ref<ILayer>> layers;
    Walk(Node(), recursive, [&](QgsLayerTreeNode& node) {
      Ref<IObject> object;
      if (QgsMapLayer* layer = LayerOf(node)) {
        if (IsTable(*layer)) return;
        object = ObjectOf(*layer);
      } else if (QgsLayerTree::isGroup(&node) && InNoFrame(node)) {
        object = ObjectOf(*QgsLayerTree::toGroup(&node));
      }
      if (featureLayersOnly && !object.Offers<IFeatureLayer>()) return;
      if (object) layers.push_back(object.As<ILayer>(0));
    });
    return layers;
  }

  std::vector<QgsMapLayer*> Tables() const {
    std::vector<QgsMapLayer*> tables;
    if (!bound_) return tables;
    Walk(Node(), true, [&](QgsLayerTreeNode& node) {
      QgsMapLayer* layer = LayerOf(node);
      if (layer && IsTable(*layer)) tables.push_back(layer);
    });
    return tables;
  }

  // On top of the frame, as a newcomer.
  void Insert(const Ref<IQgisLayer>& object) {
    CheckTurn();
    if (!object) host::Fail(failure::kObjectNotSet);
    QgsLayerTreeGroup& group = Node();
    QgsMapLayer* layer = object->LayerIfThere();
    if (!layer) host::Fail(failure::kObjectNotSet);
    if (QgsMapLayer* owned = object->Release()) {
      QgsProject::instance()->addMapLayer(owned, false);
      Remember(object);
    }
    // A layer lies on top, a table behind the others.
    group.insertLayer(IsTable(*layer) ? -1 : 0, layer);
  }

  void Remove(const Ref<IObject>& object) {
    CheckTurn();
    const auto host = object.TryAs<IQgisLayer>();
    QgsMapLayer* layer = host ? host->LayerIfThere() : nullptr;
    if (!layer || !node_) return;
    QgsLayerTreeLayer* entry = node_->findLayer(layer->id());
    if (!entry) return;
    // Its last entry goes with the layer itself: one that went first would take it along later,
    // in the middle of whatever QGIS asks meanwhile.
    if (EntriesOf(*layer) > 1) {
      QgsLayerTree::toGroup(entry->parent())->removeChildNode(entry);
    } else {
      EndEditing(*layer);
      QgsProject::instance()->removeMapLayer(layer);
    }
  }

  QPointer<QgsLayerTreeGroup> node_;
  bool bound_ = node_ != nullptr, expanded_ = true;  // of one that is bound to nothing yet
  Text name_;
};

using KnownFrames = std::map<const QgsLayerTreeGroup*, std::weak_ptr<DataFrame>>;

KnownFrames& KnownOnes() { return Session::Running().Of<KnownFrames>(); }

void RemoveAll(QgsLayerTreeGroup& group) {
  QStringList ids;
  for (const QgsLayerTreeLayer* entry : group.findLayers()) {
    if (entry->layer() && EntriesOf(*entry->layer()) > 1) continue;  // another frame holds it
    if (entry->layer()) EndEditing(*entry->layer());
    ids << entry->layerId();
  }
  for (const QString& id : ids) QgsProject::instance()->removeMapLayer(id);
}

}  // namespace

Ref<IMap> FrameOf(QgsLayerTreeGroup& node) {
  auto& place = KnownOnes()[&node];
  auto frame = place.lock();
  if (!frame || frame->Gone()) {
    frame = std::make_shared<DataFrame>(&node);
    place = frame;
  }
  return Ref<IMap>(std::move(frame));
}

Ref<IMap> NewFrame() { return Ref<IMap>(std::make_shared<DataFrame>(nullptr)); }

void AddFrame(const Ref<IMap>& map) {
  auto frame = map.As<DataFrame>(0);
  if (!frame) host::Fail(failure::kObjectNotSet);
  if (frame->NodeIfThere()) return;
  auto* group = QgsProject::instance()->layerTreeRoot()->addGroup(ToQt(frame->Name()));
  MarkFrame(*group, true);
  frame->Bind(group);
  KnownOnes()[group] = frame.Shared();
}

void RemoveFrame(const Ref<IMap>& map) {
  auto frame = map.As<DataFrame>(0);
  if (!frame) host::Fail(failure::kObjectNotSet);
  QgsLayerTreeGroup* node = frame->NodeIfThere();
  if (!node) return;
  QgsLayerTree* root = QgsProject::instance()->layerTreeRoot();
  if (node != root) {
    RemoveAll(*node);
    root->removeChildNode(node);
    return;
  }
  // The whole tree was the frame: what is no frame of its own goes.
  for (QgsLayerTreeNode* child : root->children()) {
    if (IsMarkedFrame(*child)) continue;
    if (QgsLayerTree::isGroup(child)) {
      RemoveAll(*QgsLayerTree::toGroup(child));
      root->removeChildNode(child);
    } else {
      if (QgsMapLayer* layer = LayerOf(*child)) EndEditing(*layer);
      QgsProject::instance()->removeMapLayer(QgsLayerTree::toLayer(child)->layerId());
    }
  }
}

QgsLayerTreeGroup* NodeOf(const Ref<IObject>& map) {
  const auto frame = map.TryAs<DataFrame>();
  return frame ? frame->NodeIfThere() : nullptr;
}

}  // namespace brelmon::qgis
