// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors over the rows of a vector layer.
#include "hosts/qgis/data/cursor.h"

#include <qgsfeatureiterator.h>

#include <QPointer>
#include <optional>

#include "hosts/common/uniquevalues.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

class Row : public virtual IRowBuffer {
 public:
  explicit Row(std::shared_ptr<const FieldTable> fields) : fields_(std::move(fields)) {}
  brelmon::Value Value(std::int32_t index) override {
    return ValueOf(feature.attribute(fields_->At(index).attribute));
  }
  QgsFeature feature;

 private:
  std::shared_ptr<const FieldTable> fields_;
};

class Cursor : public virtual ICursor, public virtual host::ICursorFields {
 public:
  Cursor(RowSource source, bool recycling)
      : layer_(source.trial ? source.trial.get() : source.layer),
        trial_(std::move(source.trial)),
        only_(std::move(source.only)),
        fields_(FieldsOf(*layer_)),
        field_(std::move(source.field)),
        recycling_(recycling) {}

  Ref<IRowBuffer> NextRow() override {
    CheckStep();
    if (!rows_) Open();
    if (!recycling_ || !row_) row_ = std::make_shared<Row>(fields_);
    while (rows_->nextFeature(row_->feature)) {
      if (!only_ || only_->contains(row_->feature.id())) return Ref<IRowBuffer>(row_);
    }
    return {};
  }

  std::int32_t FindField(const Text& name) override { return fields_->Find(name); }
  void ReadOnly(std::int32_t index) override {
    if (!rows_) field_ = fields_->At(index).name;
  }

 private:
  void Open() {
    if (!layer_) {
      Raise(failure::kNoSuchObject, u"The layer of these rows is no longer in the map.", 0);
    }
    QgsFeatureRequest request;
    request.setFlags(QgsFeatureRequest::NoGeometry);
    if (const auto index = fields_->Find(field_); !field_.empty() && index >= 0) {
      request.setSubsetOfAttributes({fields_->At(index).attribute});
    }
    // Fetching by identifier passes by a filter: only the user's own layer may be asked so.
    if (only_ && !trial_) request.setFilterFids(*only_);
    rows_ = layer_->getFeatures(request);
  }

  QPointer<QgsVectorLayer> layer_;
  std::unique_ptr<QgsVectorLayer> trial_;
  std::unique_ptr<QgsFeatureIds> only_;
  std::shared_ptr<const FieldTable> fields_;
  Text field_;
  bool recycling_;
  std::optional<QgsFeatureIterator> rows_;
  std::shared_ptr<Row> row_;
};

}  // namespace

Ref<ICursor> NewCursor(RowSource source, bool recycling) {
  return Ref<ICursor>(std::make_shared<Cursor>(std::move(source), recycling));
}

}  // namespace brelmon::qgis
