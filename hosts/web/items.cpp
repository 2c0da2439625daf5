// SPDX-License-Identifier: GPL-2.0-or-later
// One class for the rows of layers and tables, what each adds, and items without rows.
#include "hosts/web/items.h"

#include <algorithm>
#include <limits>

#include "hosts/columns/cursor.h"
#include "hosts/columns/dissolve.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/hostfailure.h"
#include "hosts/web/fieldobjects.h"
#include "hosts/web/graphics.h"
#include "hosts/web/item.h"

namespace brelmon::web {
namespace {

std::function<void()>& Listener() {
  static std::function<void()> listener;
  return listener;
}

std::int32_t Count32(std::int64_t count) {
  if (count > std::numeric_limits<std::int32_t>::max()) host::Fail(failure::kOverflow);
  return static_cast<std::int32_t>(count);
}

class Table;

/// The selected rows. It tells of the present selection, also when its table is gone.
class Selection : public ISelectionSet {
 public:
  explicit Selection(Table& owner) : owner_(&owner) {}
  void OwnerIsGone() { owner_ = nullptr; }
  void Set(columns::RowIds ids) { ids_ = std::make_shared<columns::RowIds>(std::move(ids)); }
  const std::shared_ptr<const columns::RowIds>& Ids() const { return ids_; }
  std::int32_t Count() override { return static_cast<std::int32_t>(ids_->size()); }
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override;

 private:
  Table* owner_;
  std::shared_ptr<const columns::RowIds> ids_ = std::make_shared<columns::RowIds>();
};

class Table : public Item,
              public ITableItem,
              public ITable,
              public ITableSelection,
              public ITableFields,
              public ITableDefinition,
              public IClass,
              public IDataset,
              public columns::IColumnTable {
 public:
  Table(ModuleItem facts, std::shared_ptr<Source> source)
      : Item(std::move(facts)),
        source_(std::move(source)),
        definition_(FromUtf8(Item::Facts().definition)),
        selection_(std::make_shared<Selection>(*this)) {}
  ~Table() override { selection_->OwnerIsGone(); }

  // The page.
  const std::shared_ptr<Source>& Data() override { return source_; }
  void SetGone(bool gone) override { gone_ = gone; }
  int Revision() const override { return revision_; }
  const columns::RowIds& Selected() override { return *selection_->Ids(); }
  Text Definition() override { return definition_; }
  void Select(columns::RowIds ids, SelectionMethod method) override {
    selection_->Set(columns::Combined(Selected(), std::move(ids), method));
    Change();
  }

  // Rows.
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override {
    return SearchAmong(filter, recycling, nullptr);
  }
  Ref<ICursor> SearchAmong(const Ref<IQueryFilter>& filter, bool recycling,
                           std::shared_ptr<const columns::RowIds> only) {
    Reached();
    return columns::NewCursor(source_, {{}, TriedClause(filter), std::move(only)},
                              filter ? filter->SubFields : Text(), recycling);
  }
  std::int32_t RowCount(const Ref<IQueryFilter>& filter) override {
    return Count32(Reached().CountRows(TriedClause(filter)));
  }
  Text DefinitionExpression() override { return definition_; }
  void SetDefinitionExpression(const Text& expression) override {
    Reached().TryClause(expression);
    definition_ = columns::IsBlank(expression) ? Text() : expression;
    Change();
  }
  Rows VisibleRows(bool selected) override {
    Reached();
    return {source_, {{}, definition_, selected ? selection_->Ids() : nullptr}};
  }

  // Selection.
  Ref<ISelectionSet> SelectionSet() override {
    if (gone_) Reached();
    return IsReached() ? Ref<ISelectionSet>(selection_) : Ref<ISelectionSet>();
  }
  void SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) override {
    const Text clause = TriedClause(filter);
    const Ref<ISpatialFilter> spatial = filter.TryAs<ISpatialFilter>();
    columns::RowIds rows =
        spatial ? IdsMeeting(*spatial, clause, justOne) : Reached().IdsOfRows(clause, justOne);
    Select(std::move(rows), method);
  }
  void Clear() override {
    if (gone_) Reached();
    selection_->Set({});
    Change();
  }
  void SelectionChanged() override { Change(); }

  // Fields.
  std::int32_t FieldCount() override {
    if (gone_) Reached();
    return source_ ? static_cast<std::int32_t>(source_->Fields().size()) : 0;
  }
  Ref<IField> Field(std::int32_t index) override {
    Reached();
    return NewField(source_->Fields(), index);
  }
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override {
    Reached();
    return NewFieldInfo(source_->Fields(), index, Item::Facts());
  }
  std::int32_t FindField(const Text& name) override {
    return columns::FindField(Reached().Fields(), name);
  }
  Ref<IFields> Fields() override {
    Reached();
    return NewFields(source_);
  }

  // Dataset.
  Ref<IWorkspace> Workspace() override {
    const SourceFacts& facts = Bound().Facts();
    return host::NewWorkspace(
        host::Paths().ToSystem(FromUtf8(facts.workspace)).value_or(facts.workspace),
        FromUtf8(facts.kind));
  }
  Ref<IObject> FullName() override {
    const SourceFacts& facts = Bound().Facts();
    return New<host::DatasetPath>(host::Paths().ToSystem(FromUtf8(facts.path)).value_or(facts.path),
                                  FromUtf8(facts.table));
  }

 protected:
  bool IsReached() const { return source_ && source_->Valid() && !gone_; }
  Source& Bound() {
    if (!source_) host::Fail(failure::kObjectNotSet);
    return *source_;
  }
  /// The source for a data call.
  Source& Reached() {
    if (gone_) {
      host::Fail(failure::kNoSuchObject,
                 "\"" + ToUtf8(ShownName()) + "\" is no longer part of the map.");
    }
    Bound().Table();
    return *source_;
  }
  void Bind(const Ref<ITable>& table) {
    const Ref<ITableItem> other = table.As<ITableItem>();
    if (!other) host::Fail(failure::kObjectNotSet);
    source_ = other->Data();
    facts_.name = source_->Facts().table;
    Change();
  }

 private:
  void Change() {
    ++revision_;
    TellChange();
  }

  /// The filter and the definition together; the filter is tried by itself first.
  Text TriedClause(const Ref<IQueryFilter>& filter) {
    Source& source = Reached();
    if (!filter || filter->WhereClause.empty()) return definition_;
    source.TryClause(filter->WhereClause);
    return columns::BothClauses(definition_, filter->WhereClause);
  }

  columns::RowIds IdsMeeting(const ISpatialFilter& filter, const Text& clause, bool justOne) {
    Source& source = Reached();
    if (!source.Facts().hasShapes || !EqualNoCase(filter.GeometryField, u"Shape")) {
      host::Fail(failure::kRefused, "The query was refused: there is no geometry field \"" +
                                        ToUtf8(filter.GeometryField) + "\".");
    }
    if (filter.SpatialRel != 1) host::Fail(failure::kNotSupported);
    const Ref<ShapeObject> shape = filter.Geometry.As<ShapeObject>(0);
    const ShapeStore& shapes = source.Table().shapes;
    columns::RowIds ids;
    for (const std::int64_t id : source.IdsOfRows(clause, false)) {
      const std::size_t row = source.PlaceOf(id);
      if (row >= shapes.Size() || !Intersects(shapes, row, shape->Store, 0)) continue;
      ids.push_back(id);
      if (justOne) break;
    }
    return ids;
  }

  std::shared_ptr<Source> source_;
  Text definition_;
  std::shared_ptr<Selection> selection_;
  int revision_ = 0;
  bool gone_ = false;
};

Ref<ICursor> Selection::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  if (owner_ == nullptr) {
    host::Fail(failure::kNoSuchObject, "The table of this selection is no longer there.");
  }
  return owner_->SearchAmong(filter, recycling, ids_);
}

class FeatureLayer : public Table,
                     public ILayer,
                     public IFeatureLayer,
                     public IFeatureSelection,
                     public ILayerFields {
 public:
  using Table::Table;
  Text Name() override { return ShownName(); }
  bool Valid() override { return IsReached(); }
  Text DataSourceType() override { return FromUtf8(Bound().Facts().kind) + u" Feature Class"; }
  void SelectFeatures(const Ref<IQueryFilter>& filter, SelectionMethod method,
                      bool justOne) override {
    SelectRows(filter, method, justOne);
  }
  void Clear() override { Table::Clear(); }
  void SelectionChanged() override { Table::SelectionChanged(); }
};

class StandaloneTable : public Table,
                        public IStandaloneTable,
                        public std::enable_shared_from_this<StandaloneTable> {
 public:
  using brelmon::web::Table::Table;
  Text Name() override { return ShownName(); }
  bool Valid() override { return IsReached(); }
  Ref<ITable> Table() override { return Data() ? Ref<ITable>(shared_from_this()) : Ref<ITable>(); }
  void SetTable(const Ref<ITable>& table) override {
    if (Data()) host::Fail(failure::kInvalidCall, "The table is bound already.");
    Bind(table);
  }
};

}  // namespace

Ref<IObject> NewItem(const ModuleItem& item, const Sources& sources) {
  if (item.kind != "layer" && item.kind != "table") return New<PlainLayer>(item);
  const auto known = sources.find(item.source);
  std::shared_ptr<Source> source;
  if (known != sources.end()) {
    source = known->second;
  } else {
    SourceFacts facts;
    facts.problem = "the module has no source \"" + item.source + "\"";
    source = std::make_shared<Source>(std::move(facts));
  }
  if (item.kind == "layer") return New<FeatureLayer>(item, source);
  return New<StandaloneTable>(item, source);
}

Ref<IStandaloneTable> NewStandaloneTable() {
  ModuleItem item;
  item.kind = "table";
  return New<StandaloneTable>(item, nullptr);
}

Ref<ITable> OpenTable(const std::string& systemPath, const Sources& sources) {
  ModuleItem item;
  item.kind = "table";
  const auto source = SourceOfDbf(systemPath, sources);
  item.name = source->Facts().table;
  return New<Table>(item, source);
}

void TellChange() {
  if (Listener()) Listener()();
}

int NextItemId() {
  static int last = 0;
  return ++last;
}

void SetItemListener(std::function<void()> changed) { Listener() = std::move(changed); }

}  // namespace brelmon::web
