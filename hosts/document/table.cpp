// SPDX-License-Identifier: GPL-2.0-or-later
// Clauses tried before they are used, rows counted once, selections combined.
#include "hosts/document/table.h"

#include <limits>

#include "hosts/columns/cursor.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/hostfailure.h"
#include "hosts/document/fieldobjects.h"

namespace brelmon::document {
namespace {

constexpr std::size_t kCountsKept = 16;

std::int32_t Count32(std::int64_t count) {
  if (count > std::numeric_limits<std::int32_t>::max()) host::Fail(failure::kOverflow);
  return static_cast<std::int32_t>(count);
}

}  // namespace

Table::Table(TableSettings settings)
    : settings_(std::move(settings)), selection_(std::make_shared<RowSelection>(*this)) {}
Table::~Table() { selection_->OwnerIsGone(); }

Ref<ICursor> Table::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  return SearchSelected(filter, recycling, nullptr);
}

std::int32_t Table::RowCount(const Ref<IQueryFilter>& filter) {
  columns::IRowSource& source = *Reached();
  const Text clause = TriedClause(filter);
  if (IsShared()) return Count32(source.CountRows(clause));
  const auto known = counts_.find(clause);
  if (known != counts_.end()) return known->second;
  if (counts_.size() >= kCountsKept) counts_.clear();
  return counts_[clause] = Count32(CountAndKeep(source, clause));
}

void Table::SetDefinitionExpression(const Text& expression) {
  Reached()->TryClause(expression);
  settings_.definition = columns::IsBlank(expression) ? Text() : expression;
  Changed();
}

columns::IColumnTable::Rows Table::VisibleRows(bool selected) {
  return {Reached(), {{}, settings_.definition, selected ? selection_->Ids() : nullptr}};
}

Ref<ISelectionSet> Table::SelectionSet() {
  if (gone_) Reached();
  return IsReached() ? Ref<ISelectionSet>(selection_) : Ref<ISelectionSet>();
}

void Table::SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) {
  columns::IRowSource& source = *Reached();
  const Ref<ISpatialFilter> spatial = filter.TryAs<ISpatialFilter>();
  if (spatial && (!HasShapes() || !EqualNoCase(spatial->GeometryField, kShapeField))) {
    host::Fail(failure::kRefused, "The query was refused: there is no geometry field \"" +
                                      ToUtf8(spatial->GeometryField) + "\".");
  }
  if (spatial && spatial->SpatialRel != 1) host::Fail(failure::kNotSupported);
  const Text clause = TriedClause(filter);
  const bool known = counted_ && counted_->first == clause && !spatial && !justOne;
  columns::RowIds rows = known     ? std::move(counted_->second)
                         : spatial ? IdsMeeting(spatial->Geometry, clause, justOne)
                                   : source.IdsOfRows(clause, justOne);
  if (known) counted_.reset();
  Combine(std::move(rows), method);
}

void Table::Combine(columns::RowIds rows, SelectionMethod method) {
  selection_->Combine(std::move(rows), method);
  Changed();
}

void Table::Clear() {
  if (gone_) Reached();
  Combine({}, SelectionMethod::New);
}

Ref<ICursor> Table::SearchSelected(const Ref<IQueryFilter>& filter, bool recycling,
                                   std::shared_ptr<const columns::RowIds> ids) {
  columns::RowRequest request{{}, TriedClause(filter), std::move(ids)};
  return columns::NewCursor(Reached(), std::move(request), filter ? filter->SubFields : Text(),
                            recycling, settings_.name);
}

std::int32_t Table::FieldCount() {
  if (gone_) Reached();
  const auto data = RowsOfData();
  return data ? static_cast<std::int32_t>(data->Fields().size()) : 0;
}

Ref<IField> Table::Field(std::int32_t index) { return NewField(FieldAt(*Reached(), index)); }

Ref<IFieldInfo> Table::FieldInfo(std::int32_t index) {
  const Text name = FromUtf8(FieldAt(*Reached(), index).Name);
  const auto alias = settings_.aliases.find(name);
  return NewFieldInfo(alias == settings_.aliases.end() ? name : alias->second,
                      settings_.hiddenFields.count(name) == 0);
}

std::int32_t Table::FindField(const Text& name) {
  return columns::FindField(Reached()->Fields(), name);
}

Ref<IFields> Table::Fields() { return NewFields(Reached()); }

Ref<IWorkspace> Table::Workspace() {
  Place place = BoundPlace();
  return host::NewWorkspace(std::move(place.workspace), std::move(place.kind));
}

Ref<IObject> Table::FullName() {
  Place place = BoundPlace();
  return New<host::DatasetPath>(std::move(place.path), std::move(place.name));
}

Table::Place Table::BoundPlace() const {
  if (!RowsOfData()) host::Fail(failure::kObjectNotSet);
  return DataPlace();
}

std::shared_ptr<columns::IRowSource> Table::Reached() {
  if (gone_) {
    host::Fail(failure::kNoSuchObject,
               "\"" + ToUtf8(settings_.name) + "\" is no longer part of the map.");
  }
  auto data = RowsOfData();
  if (!data) host::Fail(failure::kObjectNotSet);
  if (!HasReachedData()) ReachData();
  return data;
}

/// A query is tried before it selects: what is read row by row for the count is kept for that.
std::int64_t Table::CountAndKeep(columns::IRowSource& source, const Text& clause) {
  counted_.reset();
  if (columns::IsBlank(clause) || CountsFast()) return source.CountRows(clause);
  counted_.emplace(clause, source.IdsOfRows(clause, false));
  return static_cast<std::int64_t>(counted_->second.size());
}

/// The filter and the definition together; the filter is tried by itself first.
Text Table::TriedClause(const Ref<IQueryFilter>& filter) {
  if (!filter || filter->WhereClause.empty()) return settings_.definition;
  Reached()->TryClause(filter->WhereClause);
  return columns::BothClauses(settings_.definition, filter->WhereClause);
}

}  // namespace brelmon::document
