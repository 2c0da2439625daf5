// SPDX-License-Identifier: GPL-2.0-or-later
// Fields, rows, selection and filter of a vector layer.
#include "hosts/qgis/data/vectortable.h"

#include <algorithm>
#include <limits>

#include "hosts/columns/cursor.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/hostfailure.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

columns::RowIds SelectedIds(const QgsVectorLayer& layer) {
  const QgsFeatureIds selected = layer.selectedFeatureIds();
  columns::RowIds ids(selected.begin(), selected.end());
  std::sort(ids.begin(), ids.end());
  return ids;
}

QgsFeatureIds SetOf(const columns::RowIds& ids) {
  QgsFeatureIds set;
  set.reserve(static_cast<int>(ids.size()));
  for (const std::int64_t id : ids) set.insert(id);
  return set;
}

std::int32_t Count32(std::int64_t count) {
  if (count > std::numeric_limits<std::int32_t>::max()) host::Fail(failure::kOverflow);
  return static_cast<std::int32_t>(count);
}

/// A cursor over the layer's rows; with `only`, those among them.
Ref<ICursor> CursorOver(QgsVectorLayer& layer, const std::shared_ptr<data::TableSource>& file,
                        const Ref<IQueryFilter>& filter, bool recycling,
                        std::shared_ptr<const columns::RowIds> only) {
  auto rows = RowsOf(layer, file);
  columns::RowRequest request{{}, {}, std::move(only)};
  if (filter.Offers<ISpatialFilter>()) {
    request.Only = std::make_shared<columns::RowIds>(MatchingIds(layer, file, filter, false));
  } else {
    request.Clause = ClauseOf(filter);
    rows->TryClause(request.Clause);
  }
  return columns::NewCursor(std::move(rows), std::move(request),
                            filter ? filter->SubFields : Text(), recycling, FromQt(layer.name()));
}

/// The rows that are selected whenever it is asked.
class SelectionSetView : public virtual ISelectionSet {
 public:
  explicit SelectionSetView(std::shared_ptr<LayerHandle> handle) : handle_(std::move(handle)) {}
  std::int32_t Count() override { return Layer().selectedFeatureCount(); }
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override {
    QgsVectorLayer& layer = Layer();
    return CursorOver(layer, handle_->File(), filter, recycling,
                      std::make_shared<columns::RowIds>(SelectedIds(layer)));
  }

 private:
  QgsVectorLayer& Layer() const { return static_cast<QgsVectorLayer&>(handle_->Layer()); }
  std::shared_ptr<LayerHandle> handle_;
};

}  // namespace

const std::shared_ptr<data::TableSource>& LayerHandle::FileIfWhole() const {
  return file_.Of(static_cast<const QgsVectorLayer&>(Layer()));
}

const std::shared_ptr<data::TableSource>& LayerHandle::File() const {
  const auto& file = FileIfWhole();
  if (!file && !file_.Damage().empty()) {
    host::Fail(failure::kFileNotFound, "The data can't be reached: " + file_.Damage());
  }
  return file;
}

QgsVectorLayer& VectorTable::Readable() const {
  QgsVectorLayer& layer = Layer();
  if (!layer.isValid()) {
    host::Fail(failure::kFileNotFound,
               "The data of '" + layer.name().toStdString() + "' can't be reached.");
  }
  return layer;
}

QgsVectorLayer& VectorTable::Layer() const {
  if (!handle_) host::Fail(failure::kObjectNotSet);
  return static_cast<QgsVectorLayer&>(handle_->Layer());
}

std::int32_t VectorTable::FieldCount() {
  return static_cast<std::int32_t>(ShownFields()->fields.size());
}

Ref<IField> VectorTable::Field(std::int32_t index) { return FieldObject(ShownFields()->At(index)); }

Ref<IFieldInfo> VectorTable::FieldInfo(std::int32_t index) {
  return FieldInfoObject(ShownFields()->At(index));
}

std::int32_t VectorTable::FindField(const Text& name) { return ShownFields()->Find(name); }

Ref<IFields> VectorTable::Fields() { return FieldsObject(ShownFields()); }

std::shared_ptr<const FieldTable> VectorTable::ShownFields() const {
  return FieldsOf(Layer(), handle_->FileIfWhole().get());
}

Ref<ICursor> VectorTable::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  return CursorOver(Readable(), handle_->File(), filter, recycling, nullptr);
}

std::int32_t VectorTable::RowCount(const Ref<IQueryFilter>& filter) {
  QgsVectorLayer& layer = Readable();
  if (filter.Offers<ISpatialFilter>()) {
    return Count32(
        static_cast<std::int64_t>(MatchingIds(layer, handle_->File(), filter, false).size()));
  }
  const auto rows = RowsOf(layer, handle_->File());
  const Text clause = ClauseOf(filter);
  rows->TryClause(clause);
  return Count32(rows->CountRows(clause));
}

columns::IColumnTable::Rows VectorTable::VisibleRows(bool selected) {
  QgsVectorLayer& layer = Readable();
  columns::RowRequest request;
  if (selected) request.Only = std::make_shared<columns::RowIds>(SelectedIds(layer));
  return {RowsOf(layer, handle_->File()), std::move(request)};
}

Text VectorTable::DefinitionExpression() { return FilterOf(Layer()); }

void VectorTable::SetDefinitionExpression(const Text& expression) {
  CheckTurn();
  QgsVectorLayer& layer = Readable();
  if (layer.isEditable()) {
    host::Fail(failure::kPermissionDenied,
               "The layer '" + layer.name().toStdString() +
                   "' is being edited: it takes no filter until its edits are saved or dropped.");
  }
  // Tried over all rows, not only over those that the present filter shows.
  if (handle_->File()) handle_->File()->TryClause(expression);
  if (!handle_->File()) RowsOf(layer, nullptr)->TryClause(expression);
  const QgsFeatureIds selected = layer.selectedFeatureIds();
  SetFilter(layer, expression);
  if (layer.selectedFeatureIds() != selected) layer.selectByIds(selected);
}

Ref<ISelectionSet> VectorTable::SelectionSet() {
  Layer();  // there at all
  return New<SelectionSetView>(handle_);
}

void VectorTable::SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method,
                             bool justOne) {
  CheckTurn();
  QgsVectorLayer& layer = Readable();
  columns::RowIds rows = MatchingIds(layer, handle_->File(), filter, justOne);
  if (method != SelectionMethod::New) {
    rows = columns::Combined(SelectedIds(layer), std::move(rows), method);
  }
  layer.selectByIds(SetOf(rows));
}

// Keeps what was selected for QGIS's own "Reselect".
void VectorTable::Clear() {
  CheckTurn();
  if (Layer().selectedFeatureCount() > 0) Layer().removeSelection();
}

// QGIS has told its listeners already; what is left is the picture of the layer.
void VectorTable::SelectionChanged() { Layer().triggerRepaint(); }

Ref<IWorkspace> VectorTable::Workspace() {
  const SourceDescription facts = SourceFacts(Layer());
  return host::NewWorkspace(facts.path, facts.workspace);
}

Ref<IObject> VectorTable::FullName() {
  return New<host::DatasetPath>(SourceFacts(Layer()).path, FromQt(Layer().name()));
}

}  // namespace brelmon::qgis
