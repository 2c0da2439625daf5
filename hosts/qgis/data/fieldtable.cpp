// SPDX-License-Identifier: GPL-2.0-or-later
// The fields of a vector layer in the platform's terms.
#include "hosts/qgis/data/fieldtable.h"

#include <qgsattributetableconfig.h>
#include <qgsvectordataprovider.h>

#include <QDateTime>

#include "hosts/qgis/data/ogrfacts.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

class FieldView : public virtual IField {
 public:
  explicit FieldView(FieldFacts facts) : facts_(std::move(facts)) {}
  Text Name() override { return facts_.name; }
  FieldType Type() override { return facts_.type; }

 private:
  FieldFacts facts_;
};

class FieldInfoView : public virtual IFieldInfo {
 public:
  explicit FieldInfoView(FieldFacts facts) : facts_(std::move(facts)) {}
  Text Alias() override { return facts_.alias; }
  bool Visible() override { return facts_.visible; }

 private:
  FieldFacts facts_;
};

class FieldsView : public virtual IFields {
 public:
  explicit FieldsView(std::shared_ptr<const FieldTable> table) : table_(std::move(table)) {}
  std::int32_t FieldCount() override { return static_cast<std::int32_t>(table_->fields.size()); }
  Ref<IField> Field(std::int32_t index) override { return FieldObject(table_->At(index)); }

 private:
  std::shared_ptr<const FieldTable> table_;
};

FieldType TypeOf(const QgsField& field) {
  switch (field.type()) {
    case QVariant::Bool:
      return FieldType::SmallInteger;
    case QVariant::Int:
    case QVariant::UInt:
      return FieldType::Integer;
    case QVariant::LongLong:
    case QVariant::ULongLong:
    case QVariant::Double:
      return FieldType::Double;
    case QVariant::Date:
    case QVariant::DateTime:
      return FieldType::Date;
    case QVariant::ByteArray:
      return FieldType::Blob;
    default:
      return FieldType::String;
  }
}

bool Hidden(const QVector<QgsAttributeTableConfig::ColumnConfig>& columns, const QString& name) {
  for (const auto& column : columns) {
    if (column.type == QgsAttributeTableConfig::Field && column.name == name) return column.hidden;
  }
  return false;
}

Date DateOf(const QDateTime& time) {
  const QDate day = time.date();
  const QTime clock = time.time();
  return ToDate({day.year(), day.month(), day.day(), clock.hour(), clock.minute(), clock.second()});
}

brelmon::Value WholeNumber(qlonglong number) {
  if (number < INT32_MIN || number > INT32_MAX) return static_cast<double>(number);
  return static_cast<std::int32_t>(number);
}

}  // namespace

std::int32_t FieldTable::Find(const Text& name) const {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EqualNoCase(fields[i].name, name)) return static_cast<std::int32_t>(i);
  }
  return -1;
}

const FieldFacts& FieldTable::At(std::int32_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) Raise(failure::kSubscript, 0);
  return fields[static_cast<std::size_t>(index)];
}

std::shared_ptr<const FieldTable> FieldsOf(const QgsVectorLayer& layer) {
  auto table = std::make_shared<FieldTable>();
  const auto columns = layer.attributeTableConfig().columns();
  const QgsFields fields = layer.fields();
  const OgrFacts ogr = OgrFactsOf(layer);
  for (int i = 0; i < fields.size(); ++i) {
    const QgsField field = fields.at(i);
    FieldFacts facts;
    facts.name = FromQt(field.name());
    facts.alias = FromQt(layer.attributeDisplayName(i));
    facts.type = TypeOf(field);
    const auto narrow = ogr.narrowTypes.find(facts.name);
    if (narrow != ogr.narrowTypes.end()) facts.type = narrow->second;
    if (fields.fieldOrigin(i) == QgsFields::OriginProvider && !ogr.idField.empty() &&
        facts.name == ogr.idField) {
      facts.type = FieldType::OID;
    }
    facts.visible = !Hidden(columns, field.name());
    facts.attribute = i;
    table->fields.push_back(std::move(facts));
  }
  if (layer.isSpatial()) {
    table->shapeField = ogr.shapeField.empty() ? Text(u"Shape") : ogr.shapeField;
  }
  return table;
}

Ref<IField> FieldObject(const FieldFacts& facts) {
  return Ref<IField>(std::make_shared<FieldView>(facts));
}

Ref<IFieldInfo> FieldInfoObject(const FieldFacts& facts) {
  return Ref<IFieldInfo>(std::make_shared<FieldInfoView>(facts));
}

Ref<IFields> FieldsObject(std::shared_ptr<const FieldTable> table) {
  return Ref<IFields>(std::make_shared<FieldsView>(std::move(table)));
}

brelmon::Value ValueOf(const QVariant& variant) {
  if (variant.isNull()) return Null{};
  switch (static_cast<QMetaType::Type>(variant.type())) {
    case QMetaType::Bool:
      return static_cast<std::int32_t>(variant.toBool() ? 1 : 0);
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return WholeNumber(variant.toLongLong());
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
      return variant.toDouble();
    case QMetaType::QDate:
    case QMetaType::QDateTime:
      return DateOf(variant.toDateTime());
    case QMetaType::QByteArray:
      return brelmon::Value();
    default:
      return FromQt(variant.toString());
  }
}

}  // namespace brelmon::qgis
