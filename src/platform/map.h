// SPDX-License-Identifier: GPL-2.0-or-later
// The open map document: data frames, layers, tables, the contents view.
#pragma once

#include "platform/application.h"
#include "platform/geometry.h"
#include "platform/table.h"

namespace brelmon {

/// A layer of any kind. Once its map has let go of it, every call that needs its data fails with
/// 424.
class ILayer : public virtual IObject {
 public:
  virtual Text Name() = 0;   // as the contents view shows it
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
  /// As the contents view shows it. Fails with 91 while bound to nothing.
  virtual Text Name() = 0;
  virtual bool Valid() = 0;  // false when the data can't be reached, or while bound to nothing
  /// The rows; unset while bound to nothing.
  virtual Ref<ITable> Table() = 0;
  /// Binds a new object; one that is bound already fails with 5.
  virtual void SetTable(const Ref<ITable>& table) = 0;
};

/// Layers as they were when they were asked for.
class IEnumLayer : public virtual IObject {
 public:
  virtual void Reset() = 0;        // to the first
  virtual Ref<ILayer> Next() = 0;  // unset at the end
};

/// The identifier that asks IMap::Layers for feature layers only.
inline constexpr TextView kFeatureLayerUID = u"{E156D7E5-22AF-11D3-9F99-00C04F6BC78E}";

/// A data frame; it offers IStandaloneTableCollection and IActiveView too.
class IMap : public virtual IObject {
 public:
  virtual Text Name() = 0;
  virtual void SetName(const Text& name) = 0;
  virtual std::int32_t LayerCount() = 0;  // top level only, groups among them
  /// In tree order: with an unset uid all layers, else those of that kind; with `recursive` those
  /// within groups too. Fails with E_FAIL on a map that has none such, also for an unknown uid.
  virtual Ref<IEnumLayer> Layers(const Ref<UID>& uid, bool recursive) = 0;
  /// On top of the others. Fails with 91 for an unset layer.
  virtual void AddLayer(const Ref<ILayer>& layer) = 0;
  /// Does nothing for a layer that the map doesn't hold.
  virtual void DeleteLayer(const Ref<ILayer>& layer) = 0;
  /// Whether the contents view shows what is in the map.
  virtual void SetExpanded(bool expanded) = 0;
  /// Never unset.
  virtual Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() = 0;
};

/// The tables of a map at any depth, in tree order.
class IStandaloneTableCollection : public virtual IObject {
 public:
  virtual std::int32_t StandaloneTableCount() = 0;
  /// From 0; out of bounds fails with 9.
  virtual Ref<IStandaloneTable> StandaloneTable(std::int32_t index) = 0;
  /// Behind the others. Fails with 91 for an unset table.
  virtual void AddStandaloneTable(const Ref<IStandaloneTable>& table) = 0;
  /// Does nothing for a table that the map doesn't hold.
  virtual void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) = 0;
};

/// The data frames of a document.
class IMaps : public virtual IObject {
 public:
  virtual std::int32_t Count() = 0;  // at least 1, but for a moment of who removes the last
  virtual Ref<IMap> Item(std::int32_t index) = 0;  // from 0; out of bounds fails with 9
  /// An empty one without a name, not yet a member; it can be asked and named all the same.
  virtual Ref<IMap> Create() = 0;
  /// Behind the others; a member is left where it is. Fails with 91 for an unset map.
  virtual void Add(const Ref<IMap>& map) = 0;
  /// With all that no other map holds. Does nothing for a map that is no member; fails with 91 for
  /// an unset one.
  virtual void Remove(const Ref<IMap>& map) = 0;
};

/// What SelectedItem gives when several items are selected: they, in no order that means anything.
class ISet : public virtual IObject {
 public:
  virtual std::int32_t Count() = 0;
  virtual void Reset() = 0;         // to the first
  virtual Ref<IObject> Next() = 0;  // unset at the end
};

class IContentsView : public virtual IObject {
 public:
  virtual Text Name() = 0;  // "Display", "Source", "Selection"
  /// An object, or null when nothing is selected.
  virtual Value SelectedItem() = 0;
  /// Does nothing for an item that isn't selected.
  virtual void RemoveFromSelectedItems(const Ref<IObject>& item) = 0;
  /// Draws the item anew, with an unset one the whole view.
  virtual void Refresh(const Ref<IObject>& item) = 0;
};

/// The open map document. None of what it gives is unset, but where it says so.
class IMxDocument : public virtual IObject {
 public:
  virtual Ref<IMap> FocusMap() = 0;
  virtual Ref<IActiveView> ActiveView() = 0;  // the focus map's
  /// Its map becomes the focus map. Fails with 5 for a view that is no map of this document.
  virtual void SetActiveView(const Ref<IActiveView>& view) = 0;
  virtual Ref<IMaps> Maps() = 0;
  virtual Ref<IContentsView> CurrentContentsView() = 0;
  /// Brings a tab to the front, where a host has several. Fails with 91 for an unset view.
  virtual void SetCurrentContentsView(const Ref<IContentsView>& view) = 0;
  /// 0 is "Display"; out of bounds fails with 9.
  virtual Ref<IContentsView> ContentsView(std::int32_t index) = 0;
  virtual Ref<IObject> SelectedItem() = 0;  // unset when nothing is
  /// Lets every contents view catch up with the maps.
  virtual void UpdateContents() = 0;
};

}  // namespace brelmon
