// SPDX-License-Identifier: GPL-2.0-or-later
// The fields of a vector layer in the platform's terms.
#include "hosts/qgis/data/fieldtable.h"

#include <qgsattributetableconfig.h>
#include <qgsvectordataprovider.h>

#include "hosts/common/hostfailure.h"
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

bool Hidden(const QVector<QgsAttributeTableConfig::ColumnConfig>& columns, const QString& name) {
  for (const auto& column : columns) {
    if (column.type == QgsAttributeTableConfig::Field && column.name == name) return column.hidden;
  }
  return false;
}

}  // namespace

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

std::int32_t FieldTable::Find(const Text& name) const {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EqualNoCase(fields[i].name, name)) return static_cast<std::int32_t>(i);
  }
  return -1;
}

const FieldFacts& FieldTable::At(std::int32_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= fields.size())
    host::Fail(failure::kSubscript);
  return fields[static_cast<std::size_t>(index)];
}

std::shared_ptr<const FieldTable> FieldsOf(const QgsVectorLayer& layer,
                                           const data::TableSource* file) {
  auto table = std::make_shared<FieldTable>();
  const auto columns = layer.attributeTableConfig().columns();
  const QgsFields fields = layer.fields();
  for (int i = 0; i < fields.size(); ++i) {
    const QgsField field = fields.at(i);
    FieldFacts facts;
    facts.name = FromQt(field.name());
    facts.alias = FromQt(layer.attributeDisplayName(i));
    facts.type = file ? file->Fields()[static_cast<std::size_t>(i)].Type : TypeOf(field);
    facts.visible = !Hidden(columns, field.name());
    table->fields.push_back(std::move(facts));
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

}  // namespace brelmon::qgis
