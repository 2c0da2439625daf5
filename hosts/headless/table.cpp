// SPDX-License-Identifier: GPL-2.0-or-later
// One class for the rows of both kinds, and what each adds.
#include "hosts/headless/table.h"

#include <algorithm>
#include <limits>

#include "hosts/columns/cursor.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/hostfailure.h"
#include "hosts/headless/fieldobjects.h"
#include "hosts/headless/problem.h"
#include "hosts/headless/shape.h"
#include "hosts/headless/tableselection.h"
#include "platform/workspace.h"

namespace brelmon::headless {
namespace {

std::int32_t Count32(std::int64_t count) {
  if (count > std::numeric_limits<std::int32_t>::max()) host::Fail(failure::kOverflow);
  return static_cast<std::int32_t>(count);
}

class Table : public IHostTable,
              public IProblem,
              public ITable,
              public ITableSelection,
              public ITableFields,
              public ITableDefinition,
              public IClass,
              public IDataset,
              public RowSelection::Owner {
 public:
  explicit Table(TableSettings settings)
      : settings_(std::move(settings)), selection_(std::make_shared<RowSelection>(*this)) {}
  ~Table() override { selection_->OwnerIsGone(); }

  const std::shared_ptr<data::TableSource>& Source() override { return settings_.source; }
  const OGRSpatialReference* ReferenceSystem() override {
    if (settings_.crs) return settings_.crs.get();
    return settings_.source ? settings_.source->ReferenceSystem() : nullptr;
  }
  void SetGone(bool gone) override { gone_ = gone; }
  std::string Problem() override {
    if (gone_) return "it is no longer part of the map";
    return settings_.source ? settings_.source->Problem() : "it has no data";
  }

  // Rows.
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override {
    return SearchSelected(filter, recycling, nullptr);
  }
  std::int32_t RowCount(const Ref<IQueryFilter>& filter) override {
    data::TableSource& source = *Reached();
    const Text clause = TriedClause(filter);
    if (source.IsShared()) return Count32(source.CountRows(clause));
    const auto known = counts_.find(clause);
    if (known != counts_.end()) return known->second;
    if (counts_.size() >= kCountsKept) counts_.clear();
    return counts_[clause] = Count32(CountAndKeep(source, clause));
  }
  Text DefinitionExpression() override { return settings_.definition; }
  void SetDefinitionExpression(const Text& expression) override {
    Reached()->TryClause(expression);
    settings_.definition = columns::IsBlank(expression) ? Text() : expression;
  }

  // Selection.
  Ref<ISelectionSet> SelectionSet() override {
    if (gone_) Reached();
    return IsReached() ? Ref<ISelectionSet>(selection_) : Ref<ISelectionSet>();
  }
  void SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) override {
    data::TableSource& source = *Reached();
    const GeometryPtr shape = ShapeOf(filter);
    const Text clause = TriedClause(filter);
    const bool known = counted_ && counted_->first == clause && !shape && !justOne;
    columns::RowIds rows = known   ? std::move(counted_->second)
                           : shape ? source.IdsTouching(clause, *shape, justOne)
                                   : source.IdsOfRows(clause, justOne);
    if (known) counted_.reset();
    selection_->Combine(std::move(rows), method);
  }
  void Clear() override {
    if (gone_) Reached();
    selection_->Combine({}, SelectionMethod::New);
  }
  // The contents are looked at whenever they are asked for: nobody waits to be told.
  void SelectionChanged() override {}

  // Fields.
  std::int32_t FieldCount() override {
    if (gone_) Reached();
    return settings_.source ? static_cast<std::int32_t>(settings_.source->Fields().size()) : 0;
  }
  Ref<IField> Field(std::int32_t index) override { return NewField(FieldAt(*Reached(), index)); }
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override {
    const Text name = FromUtf8(FieldAt(*Reached(), index).Name);
    const auto alias = settings_.aliases.find(name);
    return NewFieldInfo(alias == settings_.aliases.end() ? name : alias->second,
                        settings_.hiddenFields.count(name) == 0);
  }
  std::int32_t FindField(const Text& name) override {
    return columns::FindField(Reached()->Fields(), name);
  }
  Ref<IFields> Fields() override { return NewFields(Reached()); }

  // Dataset.
  Ref<IWorkspace> Workspace() override {
    const data::TableSource& source = Bound();
    return host::NewWorkspace(source.WorkspacePath(), source.Kind());
  }
  Ref<IObject> FullName() override {
    const data::TableSource& source = Bound();
    return New<host::DatasetPath>(source.Address().path, source.TableName());
  }

  Rows VisibleRows(bool selected) override {
    return {Reached(), {{}, settings_.definition, selected ? selection_->Ids() : nullptr}};
  }

  // For the selection.
  Ref<ICursor> SearchSelected(const Ref<IQueryFilter>& filter, bool recycling,
                              std::shared_ptr<const columns::RowIds> ids) override {
    columns::RowRequest request{{}, TriedClause(filter), std::move(ids)};
    return columns::NewCursor(Reached(), std::move(request), filter ? filter->SubFields : Text(),
                              recycling);
  }

 protected:
  Text OwnName() const { return settings_.name; }
  bool IsReached() const { return settings_.source && settings_.source->Valid() && !gone_; }

  data::TableSource& Bound() {
    if (!settings_.source) host::Fail(failure::kObjectNotSet);
    return *settings_.source;
  }
  /// The source for a data call.
  const std::shared_ptr<data::TableSource>& Reached() {
    if (gone_) {
      host::Fail(failure::kNoSuchObject,
                 "\"" + ToUtf8(settings_.name) + "\" is no longer part of the map.");
    }
    Bound().CheckValid();
    return settings_.source;
  }
  void Bind(const Ref<ITable>& table) {
    const Ref<IHostTable> other = table.As<IHostTable>();
    if (!other) host::Fail(failure::kObjectNotSet);
    settings_.source = other->Source();
    settings_.name = settings_.source->TableName();
  }

 private:
  static constexpr std::size_t kCountsKept = 16;

  /// A query is tried before it selects: what is read row by row for the count is kept for that.
  std::int64_t CountAndKeep(data::TableSource& source, const Text& clause) {
    counted_.reset();
    if (columns::IsBlank(clause) || source.HasOwnSql()) return source.CountRows(clause);
    counted_.emplace(clause, source.IdsOfRows(clause, false));
    return static_cast<std::int64_t>(counted_->second.size());
  }

  /// The filter and the definition together; the filter is tried by itself first.
  Text TriedClause(const Ref<IQueryFilter>& filter) {
    if (!filter || filter->WhereClause.empty()) return settings_.definition;
    Reached()->TryClause(filter->WhereClause);
    return columns::BothClauses(settings_.definition, filter->WhereClause);
  }

  /// The shape of a spatial filter in this table's reference system; null for other filters.
  GeometryPtr ShapeOf(const Ref<IQueryFilter>& filter) {
    const Ref<ISpatialFilter> spatial = filter.TryAs<ISpatialFilter>();
    if (!spatial) return nullptr;
    const data::TableSource& source = *Reached();
    if (!source.HasGeometry() || !EqualNoCase(spatial->GeometryField, data::kShapeField)) {
      host::Fail(failure::kRefused, "The query was refused: there is no geometry field \"" +
                                        ToUtf8(spatial->GeometryField) + "\".");
    }
    if (spatial->SpatialRel != 1) host::Fail(failure::kNotSupported);
    const Ref<Shape> shape = spatial->Geometry.As<Shape>();
    return shape->In(ReferenceSystem());
  }

  TableSettings settings_;
  std::shared_ptr<RowSelection> selection_;
  std::map<Text, std::int32_t> counts_;
  std::optional<std::pair<Text, columns::RowIds>> counted_;  // the rows of one clause
  bool gone_ = false;
};

class FeatureLayer : public Table,
                     public ILayer,
                     public IFeatureLayer,
                     public IFeatureSelection,
                     public ILayerFields {
 public:
  using Table::Table;
  Text Name() override { return OwnName(); }
  bool Valid() override { return IsReached(); }
  Text DataSourceType() override { return Bound().Kind() + u" Feature Class"; }
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
  using brelmon::headless::Table::Table;
  Text Name() override { return OwnName(); }
  bool Valid() override { return IsReached(); }
  Ref<ITable> Table() override {
    return Source() ? Ref<ITable>(shared_from_this()) : Ref<ITable>();
  }
  void SetTable(const Ref<ITable>& table) override {
    if (Source()) host::Fail(failure::kInvalidCall, "The table is bound already.");
    Bind(table);
  }
};

}  // namespace

Ref<ILayer> NewFeatureLayer(TableSettings settings) {
  return New<FeatureLayer>(std::move(settings));
}

Ref<IStandaloneTable> NewStandaloneTable(TableSettings settings) {
  return New<StandaloneTable>(std::move(settings));
}

Ref<ITable> OpenTable(const std::string& systemPath) {
  data::SourceAddress address;
  address.path = systemPath;
  TableSettings settings;
  settings.source = data::OpenSource(address);
  settings.source->CheckValid();
  settings.name = settings.source->TableName();
  return New<Table>(std::move(settings));
}

}  // namespace brelmon::headless
