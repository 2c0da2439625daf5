// SPDX-License-Identifier: GPL-2.0-or-later
// The open map document: data frames, layers, tables, the contents view.
#pragma once

#include "platform/application.h"
#include "platform/geometry.h"
#include "platform/table.h"

namespace brelmon {

class ILayer : public virtual IObject {
 public:
  virtual Text Name() = 0;
  virtual bool Valid() = 0;  // false when the data can't be reached
};

/// A layer with attributes. The same object offers ILayer, IFeatureSelection, ITableSelection,
/// ILayerFields, ITableFields, ITable, ITableDefinition, IClass and IDataset.
class IFeatureLayer : public virtual IObject {
 public:
  virtual Text DataSourceType() = 0;  // for instance "Shapefile Feature Class"
};

/// A table with no geometry. The same object offers ITableSelection, ITableFields, ITable,
/// ITableDefinition, IClass and IDataset.
class IStandaloneTable : public virtual IObject {
 public:
  virtual Text Name() = 0;
  virtual bool Valid() = 0;
  virtual Ref<ITable> Table() = 0;
  /// Binds a new object; one that is bound already fails with 5.
  virtual void SetTable(const Ref<ITable>& table) = 0;
};

class IEnumLayer : public virtual IObject {
 public:
  virtual void Reset() = 0;
  virtual Ref<ILayer> Next() = 0;  // unset at the end
};

/// The identifier that asks IMap::Layers for feature layers only.
inline constexpr TextView kFeatureLayerUID = u"{E156D7E5-22AF-11D3-9F99-00C04F6BC78E}";

/// A data frame; it offers IStandaloneTableCollection and IActiveView too.
class IMap : public virtual IObject {
 public:
  virtual Text Name() = 0;
  virtual void SetName(const Text& name) = 0;
  virtual std::int32_t LayerCount() = 0;  // top level only
  /// With an unset uid all layers, else those of that kind. Fails on a map that has none such.
  virtual Ref<IEnumLayer> Layers(const Ref<UID>& uid, bool recursive) = 0;
  virtual void AddLayer(const Ref<ILayer>& layer) = 0;
  /// Does nothing for a layer that the map doesn't hold.
  virtual void DeleteLayer(const Ref<ILayer>& layer) = 0;
  virtual void SetExpanded(bool expanded) = 0;
  virtual Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() = 0;
};

class IStandaloneTableCollection : public virtual IObject {
 public:
  virtual std::int32_t StandaloneTableCount() = 0;
  virtual Ref<IStandaloneTable> StandaloneTable(std::int32_t index) = 0;  // from 0
  virtual void AddStandaloneTable(const Ref<IStandaloneTable>& table) = 0;
  virtual void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) = 0;
};

class IMaps : public virtual IObject {
 public:
  virtual std::int32_t Count() = 0;
  virtual Ref<IMap> Item(std::int32_t index) = 0;  // from 0; out of bounds fails with 9
  virtual Ref<IMap> Create() = 0;                  // not yet a member
  virtual void Add(const Ref<IMap>& map) = 0;
  virtual void Remove(const Ref<IMap>& map) = 0;
};

/// What SelectedItem gives when several items are selected.
class ISet : public virtual IObject {
 public:
  virtual std::int32_t Count() = 0;
  virtual void Reset() = 0;
  virtual Ref<IObject> Next() = 0;  // unset at the end
};

class IContentsView : public virtual IObject {
 public:
  virtual Text Name() = 0;  // "Display", "Source", "Selection"
  /// An object, or null when nothing is selected.
  virtual Value SelectedItem() = 0;
  virtual void RemoveFromSelectedItems(const Ref<IObject>& item) = 0;
  virtual void Refresh(const Ref<IObject>& item) = 0;
};

class IMxDocument : public virtual IObject {
 public:
  virtual Ref<IMap> FocusMap() = 0;
  virtual Ref<IActiveView> ActiveView() = 0;
  virtual void SetActiveView(const Ref<IActiveView>& view) = 0;  // a map becomes the focus map
  virtual Ref<IMaps> Maps() = 0;
  virtual Ref<IContentsView> CurrentContentsView() = 0;
  virtual void SetCurrentContentsView(const Ref<IContentsView>& view) = 0;
  virtual Ref<IContentsView> ContentsView(std::int32_t index) = 0;  // 0 is "Display"
  virtual Ref<IObject> SelectedItem() = 0;                          // unset when nothing is
  virtual void UpdateContents() = 0;
};

}  // namespace brelmon
