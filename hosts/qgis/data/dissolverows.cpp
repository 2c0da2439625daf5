// SPDX-License-Identifier: GPL-2.0-or-later
// Values straight from QGIS's features.
#include "hosts/qgis/data/dissolverows.h"

#include <qgsfeatureiterator.h>

#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/data/ogrfacts.h"
#include "hosts/qgis/data/vectortable.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

class DissolveRows : public host::IDissolveRows {
 public:
  DissolveRows(QgsVectorLayer& layer, bool useSelected)
      : layer_(layer), table_(FieldsOf(layer)), useSelected_(useSelected) {
    for (const FieldFacts& field : table_->fields) {
      fields_.push_back({ToUtf8(field.name), field.type, 0, 0});
    }
    encoding_ = ReadOgrColumns(layer, fields_);
    texts_.resize(fields_.size());
  }

  const std::vector<host::DissolveField>& Fields() override { return fields_; }
  std::string Encoding() override { return encoding_; }

  void Choose(const std::vector<std::size_t>& fields) override {
    QgsAttributeList attributes;
    for (const std::size_t field : fields) attributes.push_back(table_->fields[field].attribute);
    QgsFeatureRequest request;
    request.setFlags(QgsFeatureRequest::NoGeometry).setSubsetOfAttributes(attributes);
    if (useSelected_) selected_ = layer_.selectedFeatureIds();
    rows_ = layer_.getFeatures(request);
  }

  // A request for the selected identifiers would pass by the filter.
  bool Next() override {
    CheckStep();
    while (rows_.nextFeature(row_)) {
      if (!useSelected_ || selected_.contains(row_.id())) return true;
    }
    return false;
  }

  host::DissolveCell Cell(std::size_t index) override {
    using Kind = host::DissolveCell::Kind;
    const QVariant value = row_.attribute(table_->fields[index].attribute);
    if (value.isNull()) return {};
    switch (fields_[index].Type) {
      case FieldType::SmallInteger:
      case FieldType::Integer:
      case FieldType::Single:
      case FieldType::Double:
      case FieldType::OID:
        return {Kind::Number, value.toDouble(), {}};
      case FieldType::Date: {
        const Value date = ValueOf(value);
        if (date.IsNull()) return {};
        return {Kind::Date, date.ToDate().Serial, {}};
      }
      default:
        texts_[index] = value.toString().toUtf8();
        return {Kind::Text, 0, {texts_[index].constData(), std::size_t(texts_[index].size())}};
    }
  }

 private:
  QgsVectorLayer& layer_;
  std::shared_ptr<const FieldTable> table_;
  bool useSelected_;
  QgsFeatureIds selected_;
  std::vector<host::DissolveField> fields_;
  std::string encoding_;
  std::vector<QByteArray> texts_;
  QgsFeatureIterator rows_;
  QgsFeature row_;
};

}  // namespace

std::unique_ptr<host::IDissolveRows> NewDissolveRows(const Ref<ITable>& table, bool useSelected) {
  const auto own = table.TryAs<VectorTable>();
  if (!own) return host::NewTableRows(table, useSelected);
  return std::make_unique<DissolveRows>(own->Readable(), useSelected);
}

}  // namespace brelmon::qgis
