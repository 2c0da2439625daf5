// SPDX-License-Identifier: GPL-2.0-or-later
// Rows to dissolve from any table that the platform's interfaces can read.
#include "hosts/common/dissolve.h"

namespace brelmon::host {
namespace {

class TableRows : public IDissolveRows {
 public:
  TableRows(const Ref<ITable>& table, bool useSelected) : table_(table), selected_(useSelected) {
    const auto fields = table.As<IClass>()->Fields();
    for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
      const auto field = fields->Field(i);
      fields_.push_back({ToUtf8(field->Name()), field->Type(), 0, 0});
    }
    texts_.resize(fields_.size());
  }

  const std::vector<DissolveField>& Fields() override { return fields_; }
  std::string Encoding() override { return "UTF-8"; }

  void Choose(const std::vector<std::size_t>& fields) override {
    Ref<IQueryFilter> filter;
    if (fields.size() == 1) {
      filter = New<IQueryFilter>();
      filter->SubFields = FromUtf8(fields_[fields.front()].Name);
    }
    cursor_ = selected_ ? table_.As<ITableSelection>()->SelectionSet()->Search(filter, true)
                        : table_->Search(filter, true);
  }
  bool Next() override {
    row_ = cursor_->NextRow();
    return static_cast<bool>(row_);
  }
  DissolveCell Cell(std::size_t field) override {
    const Value value = row_->Value(static_cast<std::int32_t>(field));
    if (value.IsNull() || value.IsEmpty()) return {};
    switch (fields_[field].Type) {
      case FieldType::String:
        texts_[field] = ToUtf8(value.ToText());
        return {DissolveCell::Kind::Text, 0, texts_[field]};
      case FieldType::Date:
        return {DissolveCell::Kind::Date, value.ToDate().Serial, {}};
      default:
        return {DissolveCell::Kind::Number, value.ToDouble(), {}};
    }
  }

 private:
  Ref<ITable> table_;
  bool selected_;
  std::vector<DissolveField> fields_;
  std::vector<std::string> texts_;
  Ref<ICursor> cursor_;
  Ref<IRowBuffer> row_;
};

}  // namespace

std::unique_ptr<IDissolveRows> NewTableRows(const Ref<ITable>& table, bool useSelected) {
  return std::make_unique<TableRows>(table, useSelected);
}

}  // namespace brelmon::host
