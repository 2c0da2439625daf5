// SPDX-License-Identifier: GPL-2.0-or-later
// The objects of layers, and the registry that keeps each layer one object.
#include "hosts/qgis/data/layerobject.h"

#include <qgslayertreegroup.h>
#include <qgsproject.h>

#include <map>

#include "hosts/common/hostfailure.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/data/vectortable.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"

namespace brelmon::qgis {
namespace {

class FeatureLayer : public VectorTable,
                     public virtual ILayer,
                     public virtual IFeatureLayer,
                     public virtual IFeatureSelection,
                     public virtual ILayerFields {
 public:
  using VectorTable::VectorTable;
  Text Name() override { return FromQt(handle_->Layer().name()); }
  bool Valid() override { return handle_->Valid(); }
  Text DataSourceType() override { return SourceFacts(Layer()).featureClass; }
  void SelectFeatures(const Ref<IQueryFilter>& filter, SelectionMethod method,
                      bool justOne) override {
    SelectRows(filter, method, justOne);
  }
  void Clear() override { VectorTable::Clear(); }
  void SelectionChanged() override { VectorTable::SelectionChanged(); }
  std::int32_t FieldCount() override { return VectorTable::FieldCount(); }
  Ref<IField> Field(std::int32_t index) override { return VectorTable::Field(index); }
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override { return VectorTable::FieldInfo(index); }
};

class TableLayer : public VectorTable,
                   public virtual IStandaloneTable,
                   public std::enable_shared_from_this<TableLayer> {
 public:
  using VectorTable::VectorTable;
  Text Name() override { return FromQt(Layer().name()); }
  bool Valid() override { return handle_ && handle_->Valid(); }
  Ref<ITable> Table() override { return handle_ ? Ref<ITable>(shared_from_this()) : Ref<ITable>(); }
  void SetTable(const Ref<ITable>& table) override {
    if (handle_) host::Fail(failure::kInvalidCall, "The table is bound already.");
    handle_ = table.As<VectorTable>()->Handle();
  }
};

class OtherLayer : public virtual IQgisLayer, public virtual ILayer {
 public:
  explicit OtherLayer(std::shared_ptr<LayerHandle> handle) : handle_(std::move(handle)) {}
  QgsMapLayer* LayerIfThere() override { return handle_->IfThere(); }
  QgsMapLayer* Release() override { return handle_->Release(); }
  Text Name() override { return FromQt(handle_->Layer().name()); }
  bool Valid() override { return handle_->Valid(); }

 private:
  std::shared_ptr<LayerHandle> handle_;
};

class GroupLayer : public virtual ILayer {
 public:
  explicit GroupLayer(QgsLayerTreeGroup& group) : group_(&group) {}
  Text Name() override {
    if (!group_) host::Fail(failure::kNoSuchObject, "The group is no longer in the map.");
    return FromQt(group_->name());
  }
  bool Valid() override { return group_ != nullptr; }
  bool Gone() const { return group_ == nullptr; }

 private:
  QPointer<QgsLayerTreeGroup> group_;
};

template <class Key>
using Known = std::map<Key, std::weak_ptr<IObject>>;

struct KnownObjects {
  Known<QString> layers;
  Known<const QgsLayerTreeGroup*> groups;
};

KnownObjects& KnownOnes() { return Session::Running().Of<KnownObjects>(); }

template <class Key>
void ForgetUnheld(Known<Key>& known) {
  for (auto at = known.begin(); at != known.end();) {
    at = at->second.expired() ? known.erase(at) : std::next(at);
  }
}

std::shared_ptr<IObject> Make(const QgsMapLayer& layer, std::shared_ptr<LayerHandle> handle) {
  if (layer.type() != QgsMapLayerType::VectorLayer) return std::make_shared<OtherLayer>(handle);
  if (IsTable(layer)) return std::make_shared<TableLayer>(handle);
  return std::make_shared<FeatureLayer>(handle);
}

}  // namespace

LayerHandle::LayerHandle(QgsMapLayer* layer) : layer_(layer), name_(FromQt(layer->name())) {}

LayerHandle::LayerHandle(std::unique_ptr<QgsMapLayer> layer)
    : layer_(layer.get()), owned_(std::move(layer)), name_(FromQt(layer_->name())) {}

QgsMapLayer& LayerHandle::Layer() const {
  if (!layer_) {
    std::string reason = "\"";
    host::Fail(failure::kNoSuchObject,
               reason.append(ToUtf8(name_)).append("\" is no longer part of the map."));
  }
  return *layer_;
}

bool LayerHandle::Valid() const { return layer_ && layer_->isValid(); }

QgsMapLayer* LayerHandle::Release() { return owned_.release(); }

bool IsTable(const QgsMapLayer& layer) {
  const auto* vector = qobject_cast<const QgsVectorLayer*>(&layer);
  return vector && !vector->isSpatial();
}

Ref<IObject> ObjectOf(QgsMapLayer& layer) {
  auto& known = KnownOnes().layers;
  std::weak_ptr<IObject>& place = known[layer.id()];
  if (auto object = place.lock()) {
    auto* host = dynamic_cast<IQgisLayer*>(object.get());
    if (host && host->LayerIfThere() == &layer) return Ref<IObject>(std::move(object));
  }
  auto object = Make(layer, std::make_shared<LayerHandle>(&layer));
  place = object;
  if (known.size() > 256) ForgetUnheld(known);
  return Ref<IObject>(std::move(object));
}

Ref<IObject> ObjectOf(QgsLayerTreeGroup& group) {
  auto& known = KnownOnes().groups;
  std::weak_ptr<IObject>& place = known[&group];
  auto object = std::dynamic_pointer_cast<GroupLayer>(place.lock());
  if (!object || object->Gone()) {
    object = std::make_shared<GroupLayer>(group);
    place = object;
  }
  if (known.size() > 256) ForgetUnheld(known);
  return Ref<IObject>(std::shared_ptr<IObject>(object));
}

Ref<IObject> ObjectOwning(std::unique_ptr<QgsMapLayer> layer) {
  const QgsMapLayer& what = *layer;
  return Ref<IObject>(Make(what, std::make_shared<LayerHandle>(std::move(layer))));
}

void Remember(const Ref<IQgisLayer>& object) {
  if (QgsMapLayer* layer = object->LayerIfThere()) {
    KnownOnes().layers[layer->id()] = std::shared_ptr<IObject>(object.Shared());
  }
}

QgsVectorLayer& VectorLayerOf(const Ref<IObject>& object) {
  return object.As<VectorTable>()->Layer();
}

Ref<IStandaloneTable> NewTable() {
  return Ref<IStandaloneTable>(std::make_shared<TableLayer>(std::shared_ptr<LayerHandle>()));
}

}  // namespace brelmon::qgis
