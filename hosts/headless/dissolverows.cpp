// SPDX-License-Identifier: GPL-2.0-or-later
// Values straight from the file or from GDAL's features: no text is copied on its way to its group.
#include "hosts/headless/dissolverows.h"

#include <cpl_error.h>

#include <algorithm>
#include <optional>

#include "hosts/common/dissolvecolumns.h"
#include "hosts/common/hostfailure.h"
#include "hosts/headless/dbfrows.h"
#include "hosts/headless/table.h"
#include "hosts/headless/tableselection.h"

namespace brelmon::headless {
namespace {

class DissolveRows : public host::IDissolveRows {
 public:
  DissolveRows(std::shared_ptr<VectorSource> source, Text definition,
               std::shared_ptr<const RowIds> only)
      : source_(std::move(source)), definition_(std::move(definition)), only_(std::move(only)) {
    const VectorSource::Handle shape = source_->Open();
    for (const SourceField& field : source_->Fields()) {
      fields_.push_back({ToUtf8(field.name), field.type, 0, 0});
    }
    encoding_ = host::ReadColumns(*shape, fields_);
    recoded_.resize(fields_.size());
  }

  const std::vector<host::DissolveField>& Fields() override { return fields_; }
  std::string Encoding() override { return encoding_; }

  void Choose(const std::vector<std::size_t>& fields) override {
    plain_ = DbfRows::Open(source_, definition_);
    if (plain_) return;
    RowRequest request;
    request.clause = definition_;
    for (const std::size_t field : fields) {
      request.fields.push_back(static_cast<std::int32_t>(field));
    }
    rows_.emplace(OpenRows(*source_, request));
  }

  bool Next() override {
    if (plain_) {
      do {
        if (!plain_->Next()) return false;
      } while (!IsWanted(plain_->Id()));
      row_.reset();
      return true;
    }
    do {
      row_.reset((*rows_)->GetNextFeature());
    } while (row_ && !IsWanted(row_->GetFID()));
    if (!row_ && ReadingBroke(*source_, definition_)) {
      host::Fail(failure::kDeviceIo, CPLGetLastErrorMsg());
    }
    return row_ != nullptr;
  }

  host::DissolveCell Cell(std::size_t index) override {
    using Kind = host::DissolveCell::Kind;
    const SourceField& field = source_->Fields()[index];
    if (plain_ && !row_) {
      if (const auto cell = PlainCell(index, field)) return *cell;
      row_.reset(source_->Open()->GetFeature(plain_->Id()));
      if (!row_) host::Fail(failure::kDeviceIo, CPLGetLastErrorMsg());
    }
    if (field.ogrIndex < 0) return {Kind::Number, static_cast<double>(row_->GetFID()), {}};
    if (!row_->IsFieldSetAndNotNull(field.ogrIndex)) return {};
    switch (field.ogrType) {
      case OFTInteger:
      case OFTInteger64:
      case OFTReal:
        return {Kind::Number, row_->GetFieldAsDouble(field.ogrIndex), {}};
      case OFTDate:
      case OFTDateTime: {
        const Value date = ReadValue(*source_, *row_, field);
        if (date.IsNull()) return {};
        return {Kind::Date, date.ToDate().Serial, {}};
      }
      case OFTString:
        return {Kind::Text, 0, TextOf(index, field)};
      default:
        recoded_[index] = ToUtf8(ReadValue(*source_, *row_, field).ToText());
        return {Kind::Text, 0, recoded_[index]};
    }
  }

 private:
  bool IsWanted(GIntBig id) const {
    return !only_ || std::binary_search(only_->begin(), only_->end(), id);
  }

  /// Nothing for what only GDAL can read.
  std::optional<host::DissolveCell> PlainCell(std::size_t index, const SourceField& field) {
    using Kind = host::DissolveCell::Kind;
    const DbfTable& table = *plain_->Table();
    const DbfCell cell = table.Cell(plain_->Record(), field);
    switch (cell.is) {
      case DbfCell::Kind::Null:
        return host::DissolveCell{};
      case DbfCell::Kind::Whole:
        return host::DissolveCell{Kind::Number, static_cast<double>(cell.whole), {}};
      case DbfCell::Kind::Real:
        return host::DissolveCell{Kind::Number, cell.real, {}};
      case DbfCell::Kind::Date:
        return host::DissolveCell{Kind::Date, ToDate({cell.year, cell.month, cell.day}).Serial, {}};
      case DbfCell::Kind::Text:
        if (table.IsUtf8(cell.text)) return host::DissolveCell{Kind::Text, 0, cell.text};
        recoded_[index] = table.ToUtf8(cell.text);
        return host::DissolveCell{Kind::Text, 0, recoded_[index]};
      case DbfCell::Kind::Odd:
        break;
    }
    return {};
  }

  std::string_view TextOf(std::size_t index, const SourceField& field) {
    const char* bytes = row_->GetFieldAsString(field.ogrIndex);
    if (!source_->RecodesTexts()) return bytes;
    recoded_[index] = ToUtf8(source_->TextFromSource(bytes));
    return recoded_[index];
  }

  std::shared_ptr<VectorSource> source_;
  Text definition_;
  std::shared_ptr<const RowIds> only_;
  std::vector<host::DissolveField> fields_;
  std::vector<std::string> recoded_;
  std::string encoding_;
  std::unique_ptr<DbfRows> plain_;
  std::optional<VectorSource::Handle> rows_;
  OGRFeatureUniquePtr row_;
};

}  // namespace

std::unique_ptr<host::IDissolveRows> NewDissolveRows(const Ref<ITable>& table, bool useSelected) {
  const auto own = table.TryAs<IHostTable>();
  if (!own) return host::NewTableRows(table, useSelected);
  std::shared_ptr<const RowIds> only;
  if (useSelected) only = table.As<ITableSelection>()->SelectionSet().As<RowSelection>()->Ids();
  table->RowCount({});  // fails for a layer that is gone or can't be reached
  return std::make_unique<DissolveRows>(
      own->Source(), table.As<ITableDefinition>()->DefinitionExpression(), std::move(only));
}

}  // namespace brelmon::headless
