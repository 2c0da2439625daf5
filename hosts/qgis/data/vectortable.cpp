// SPDX-License-Identifier: GPL-2.0-or-later
// Fields, rows, selection and filter of a vector layer.
#include "hosts/qgis/data/vectortable.h"

#include "hosts/common/folderworkspace.h"
#include "hosts/columns/querytokens.h"
#include "hosts/qgis/data/cursor.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/data/query.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

/// The rows that are selected whenever it is asked.
class SelectionSetView : public virtual ISelectionSet {
 public:
  explicit SelectionSetView(std::shared_ptr<LayerHandle> handle) : handle_(std::move(handle)) {}
  std::int32_t Count() override { return Layer().selectedFeatureCount(); }
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override {
    QgsVectorLayer& layer = Layer();
    RowSource source;
    source.layer = &layer;
    source.only = std::make_unique<QgsFeatureIds>(layer.selectedFeatureIds());
    if (filter) source.field = filter->SubFields;
    if (const Text clause = ClauseOf(filter); !clause.empty()) {
      source.trial = WithClause(layer, clause);
    }
    return NewCursor(std::move(source), recycling);
  }

 private:
  QgsVectorLayer& Layer() const { return static_cast<QgsVectorLayer&>(handle_->Layer()); }
  std::shared_ptr<LayerHandle> handle_;
};

void SelectEverything(QgsVectorLayer& layer, SelectionMethod method) {
  switch (method) {
    case SelectionMethod::New:
    case SelectionMethod::Add:
      return layer.selectAll();
    case SelectionMethod::Subtract:
      return layer.removeSelection();
    case SelectionMethod::And:
      return;
    case SelectionMethod::Xor:
      return layer.invertSelection();
  }
}

// The codes differ in number from QGIS's: they are told apart by name.
void SelectThese(QgsVectorLayer& layer, const QgsFeatureIds& ids, SelectionMethod method) {
  switch (method) {
    case SelectionMethod::New:
      return layer.selectByIds(ids, Qgis::SelectBehavior::SetSelection);
    case SelectionMethod::Add:
      return layer.selectByIds(ids, Qgis::SelectBehavior::AddToSelection);
    case SelectionMethod::Subtract:
      return layer.selectByIds(ids, Qgis::SelectBehavior::RemoveFromSelection);
    case SelectionMethod::And:
      return layer.selectByIds(ids, Qgis::SelectBehavior::IntersectSelection);
    case SelectionMethod::Xor: {
      const QgsFeatureIds before = layer.selectedFeatureIds();
      return layer.selectByIds((before | ids) - (before & ids), Qgis::SelectBehavior::SetSelection);
    }
  }
}

}  // namespace

QgsVectorLayer& VectorTable::Readable() const {
  QgsVectorLayer& layer = Layer();
  if (!layer.isValid()) {
    Raise(failure::kFileNotFound, u"The data of '" + FromQt(layer.name()) + u"' can't be reached.",
          0);
  }
  return layer;
}

QgsVectorLayer& VectorTable::Layer() const {
  if (!handle_) Raise(failure::kObjectNotSet, 0);
  return static_cast<QgsVectorLayer&>(handle_->Layer());
}

std::int32_t VectorTable::FieldCount() {
  return static_cast<std::int32_t>(FieldsOf(Layer())->fields.size());
}

Ref<IField> VectorTable::Field(std::int32_t index) {
  return FieldObject(FieldsOf(Layer())->At(index));
}

Ref<IFieldInfo> VectorTable::FieldInfo(std::int32_t index) {
  return FieldInfoObject(FieldsOf(Layer())->At(index));
}

std::int32_t VectorTable::FindField(const Text& name) { return FieldsOf(Layer())->Find(name); }

Ref<IFields> VectorTable::Fields() { return FieldsObject(FieldsOf(Layer())); }

Ref<ICursor> VectorTable::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  RowSource source;
  source.layer = &Readable();
  if (filter) source.field = filter->SubFields;
  if (filter.Offers<ISpatialFilter>()) {
    source.only = std::make_unique<QgsFeatureIds>(MatchingIds(Readable(), filter, false));
  } else if (const Text clause = ClauseOf(filter); !clause.empty()) {
    source.trial = WithClause(Readable(), clause);
  }
  return NewCursor(std::move(source), recycling);
}

std::int32_t VectorTable::RowCount(const Ref<IQueryFilter>& filter) {
  if (filter.Offers<ISpatialFilter>()) {
    return static_cast<std::int32_t>(MatchingIds(Readable(), filter, false).size());
  }
  const Text clause = ClauseOf(filter);
  return clause.empty() ? CountRows(Readable()) : CountRows(*WithClause(Readable(), clause));
}

Text VectorTable::DefinitionExpression() { return FromQt(Layer().subsetString()); }

void VectorTable::SetDefinitionExpression(const Text& expression) {
  QgsVectorLayer& layer = Readable();
  if (layer.isEditable()) {
    Raise(failure::kPermissionDenied,
          u"The layer '" + FromQt(layer.name()) +
              u"' is being edited: it takes no filter until its edits are saved or dropped.",
          0);
  }
  const bool blank = columns::IsBlank(expression);
  if (!blank) WithDefinition(layer, expression);
  const QgsFeatureIds selected = layer.selectedFeatureIds();
  if (!layer.setSubsetString(blank ? QString() : ToQt(expression))) {
    Raise(failure::kRefused, u"The data source refused the filter.", 0);
  }
  if (layer.selectedFeatureIds() != selected) layer.selectByIds(selected);
}

Ref<ISelectionSet> VectorTable::SelectionSet() {
  Layer();  // there at all
  return New<SelectionSetView>(handle_);
}

void VectorTable::SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method,
                             bool justOne) {
  QgsVectorLayer& layer = Readable();
  if (ClauseOf(filter).empty() && !filter.Offers<ISpatialFilter>() && !justOne) {
    SelectEverything(layer, method);
  } else {
    SelectThese(layer, MatchingIds(layer, filter, justOne), method);
  }
}

// Keeps what was selected for QGIS's own "Reselect".
void VectorTable::Clear() {
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
