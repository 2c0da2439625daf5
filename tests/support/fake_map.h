// SPDX-License-Identifier: GPL-2.0-or-later
// The fake world's document side: maps, layers, tables over rows in memory.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "hosts/common/hostfailure.h"
#include "platform/number.h"
#include "platform/windows.h"
#include "platform/workspace.h"

namespace brelmon::test {

using Log = std::vector<std::string>;
inline void Note(Log* log, std::string entry) {
  if (log) log->push_back(std::move(entry));
}

/// As a host gives what it is asked for by number, which fails with 9 out of bounds.
template <class List>
auto& Of(List& list, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= list.size()) host::Fail(failure::kSubscript);
  return list[static_cast<std::size_t>(index)];
}

struct FakeFieldSpec {
  Text name;
  FieldType type = FieldType::Double;
  Text alias = {};  // the name if empty
  bool visible = true;
};
using Row = std::vector<Value>;

/// Cursors of the fake world know the fields of their table.
struct FakeCursor : ICursor {
  virtual std::int32_t FindField(const Text& name) = 0;
};

/// Fields, rows, selection and definition; what layers and tables have in common.
/// Understands clauses of comparisons (= <> > >= < <=) joined by AND, OR, AND NOT, with
/// parentheses; any other text is refused with E_FAIL.
class FakeRows : public ITable,
                 public ITableDefinition,
                 public ITableSelection,
                 public ITableFields,
                 public IClass,
                 public IDataset,
                 public std::enable_shared_from_this<FakeRows> {
 public:
  std::vector<FakeFieldSpec> fields;
  std::vector<Row> rows;
  std::set<std::size_t> selected;
  Text definition;
  Text sourceDescription = u"Shapefile";
  Text name;
  bool valid = true;
  bool gone = false;            // taken out of its map
  bool offersSelection = true;  // SelectionSet is unset otherwise
  Log* log = nullptr;

  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override;
  std::int32_t RowCount(const Ref<IQueryFilter>& filter) override;
  Text DefinitionExpression() override { return definition; }
  void SetDefinitionExpression(const Text& expression) override;
  Ref<ISelectionSet> SelectionSet() override;
  void SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) override;
  void Clear() override;
  void SelectionChanged() override;
  std::int32_t FieldCount() override { return static_cast<std::int32_t>(fields.size()); }
  Ref<IField> Field(std::int32_t index) override;
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override;
  std::int32_t FindField(const Text& fieldName) override;
  Ref<IFields> Fields() override;
  Ref<IWorkspace> Workspace() override;
  Ref<IObject> FullName() override;

  /// Rows by number that the definition and the clause let through.
  std::vector<std::size_t> Matching(const Text& where) const;
  void Select(const Text& where, SelectionMethod method, bool justOne = false);
  /// Fails where the data can't be reached.
  void Reach() const;
  Ref<ICursor> CursorOver(std::vector<std::size_t> numbers);
};

class FakeLayer : public FakeRows,
                  public ILayer,
                  public IFeatureLayer,
                  public IFeatureSelection,
                  public ILayerFields {
 public:
  Text dataSourceType = u"Shapefile Feature Class";
  Text shapeField = u"Shape";

  Text Name() override { return name; }
  bool Valid() override { return valid && !gone; }
  Text DataSourceType() override { return dataSourceType; }
  void SelectFeatures(const Ref<IQueryFilter>& filter, SelectionMethod method,
                      bool justOne) override;
  void Clear() override { FakeRows::Clear(); }
  void SelectionChanged() override { FakeRows::SelectionChanged(); }
  std::int32_t FieldCount() override { return FakeRows::FieldCount(); }
  Ref<IField> Field(std::int32_t index) override { return FakeRows::Field(index); }
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override { return FakeRows::FieldInfo(index); }
};

class FakeStandaloneTable : public FakeRows, public IStandaloneTable {
 public:
  bool unbound = false;  // until SetTable
  Text Name() override;
  bool Valid() override;
  Ref<ITable> Table() override;
  void SetTable(const Ref<ITable>& table) override;

 private:
  Ref<ITable> bound_;
};

/// A raster or group layer: a layer and nothing else. Groups hold layers below them.
class FakeOtherLayer : public ILayer {
 public:
  Text name;
  std::vector<Ref<ILayer>> members;
  Text Name() override { return name; }
  bool Valid() override { return true; }
};

class FakeEnvelope : public IEnvelope {
 public:
  double bounds[4] = {0, 0, 0, 0};
  void PutCoords(double xMin, double yMin, double xMax, double yMax) override;
  void QueryCoords(double& xMin, double& yMin, double& xMax, double& yMax) override;
};

/// A geometry that stands for the rows it touches, by number.
class FakeElement : public IElement {
 public:
  struct Shape : public IGeometry {
    std::set<std::size_t> touches;
  };
  Ref<Shape> shape = New<Shape>();
  Ref<IGeometry> Geometry() override { return shape; }
};

class FakeMap : public IMap,
                public IStandaloneTableCollection,
                public IActiveView,
                public IGraphicsContainerSelect,
                public IDisplay,
                public IDisplayTransformation,
                public std::enable_shared_from_this<FakeMap> {
 public:
  Text name = u"Layers";
  std::vector<Ref<ILayer>> layers;
  std::vector<Ref<IStandaloneTable>> tables;
  std::vector<Ref<IElement>> graphics;  // the selected ones
  Ref<FakeEnvelope> extent = New<FakeEnvelope>(), fullExtent = New<FakeEnvelope>();
  bool expanded = false;
  Log* log = nullptr;

  Ref<FakeLayer> AddFeatureLayer(const Text& layerName, std::vector<FakeFieldSpec> fields = {},
                                 std::vector<Row> rows = {});
  Ref<FakeStandaloneTable> AddTable(const Text& tableName, std::vector<FakeFieldSpec> fields = {},
                                    std::vector<Row> rows = {});
  Ref<FakeOtherLayer> AddOther(const Text& layerName, std::vector<Ref<ILayer>> members = {});

  Text Name() override { return name; }
  void SetName(const Text& newName) override { name = newName; }
  std::int32_t LayerCount() override { return static_cast<std::int32_t>(layers.size()); }
  Ref<IEnumLayer> Layers(const Ref<UID>& uid, bool recursive) override;
  void AddLayer(const Ref<ILayer>& layer) override;
  void DeleteLayer(const Ref<ILayer>& layer) override;
  void SetExpanded(bool isExpanded) override { expanded = isExpanded; }
  Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() override;

  std::int32_t StandaloneTableCount() override;
  Ref<IStandaloneTable> StandaloneTable(std::int32_t index) override;
  void AddStandaloneTable(const Ref<IStandaloneTable>& table) override;
  void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) override;

  void PartialRefresh(DrawPhase phase, const Ref<IObject>& data,
                      const Ref<IEnvelope>& envelope) override;
  void Refresh() override;
  Ref<IEnvelope> Extent() override { return extent; }
  Ref<IEnvelope> FullExtent() override { return fullExtent; }
  Ref<IDisplay> ScreenDisplay() override;
  Ref<IDisplayTransformation> DisplayTransformation() override;
  void SetVisibleBounds(const Ref<IEnvelope>& bounds) override;

  std::int32_t ElementSelectionCount() override;
  Ref<IEnumElement> SelectedElements() override;
};

/// Document, contents views and maps in one; `selection` is what is selected in the contents.
class FakeDocument : public IMxDocument,
                     public IDocument,
                     public IMaps,
                     public ICommandBars,
                     public std::enable_shared_from_this<FakeDocument> {
 public:
  std::vector<Ref<FakeMap>> maps;
  std::size_t focus = 0;
  std::size_t tab = 0;  // 0 Display, 1 Source, 2 Selection
  std::vector<Ref<IObject>> selection;
  std::function<Ref<ICommandItem>(const Text&)> findCommand;
  Log* log = nullptr;

  void Pick(std::vector<Ref<IObject>> items) { selection = std::move(items); }
  Ref<FakeMap> AddMap(const Text& mapName);

  Ref<IMap> FocusMap() override { return maps.at(focus); }
  Ref<IActiveView> ActiveView() override { return maps.at(focus); }
  void SetActiveView(const Ref<IActiveView>& view) override;
  Ref<IMaps> Maps() override;
  Ref<IContentsView> CurrentContentsView() override {
    return ContentsView(static_cast<std::int32_t>(tab));
  }
  void SetCurrentContentsView(const Ref<IContentsView>& view) override;
  Ref<IContentsView> ContentsView(std::int32_t index) override;
  Ref<IObject> SelectedItem() override;
  void UpdateContents() override { Note(log, "UpdateContents"); }
  Ref<ICommandBars> CommandBars() override;
  Ref<ICommandItem> Find(const Ref<UID>& uid) override {
    return findCommand ? findCommand(uid->Value) : nullptr;
  }
  std::int32_t Count() override { return static_cast<std::int32_t>(maps.size()); }
  Ref<IMap> Item(std::int32_t index) override;
  Ref<IMap> Create() override;
  void Add(const Ref<IMap>& map) override;
  void Remove(const Ref<IMap>& map) override;
};

class FakeTableWindow : public ITableWindow, public ITableWindow2 {
 public:
  explicit FakeTableWindow(std::vector<Ref<FakeTableWindow>>& all) : all_(&all) {}
  Ref<IObject> item;  // layer or table it is bound to
  std::vector<std::string> settings;
  bool open = false;

  Ref<ITableWindow> FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool exact) override;
  Ref<ITableWindow> FindViaStandaloneTable(const Ref<IStandaloneTable>& table, bool exact) override;
  void SetFeatureLayer(const Ref<IFeatureLayer>& layer) override { item = layer; }
  void SetStandaloneTable(const Ref<IStandaloneTable>& table) override { item = table; }
  void SetApplication(const Ref<IApplication>&) override { settings.push_back("application"); }
  void Show(bool show) override;
  void Unload() override { open = false; }
  void SetTableSelectionAction(std::int32_t action) override;
  void SetLayerDisplay(bool flag) override;
  void SetTableDisplay(bool first, bool second) override;

 private:
  Ref<ITableWindow> Find(const Ref<IObject>& wanted);
  std::vector<Ref<FakeTableWindow>>* all_;
};

}  // namespace brelmon::test
