// SPDX-License-Identifier: GPL-2.0-or-later
// Values straight from GDAL's features: no text is copied on its way to its group.
#include "hosts/headless/dissolverows.h"

#include <cpl_error.h>

#include <algorithm>
#include <optional>

#include "hosts/common/hostfailure.h"
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
      host::DissolveField told{ToUtf8(field.name), field.type, 0, 0};
      if (field.ogrIndex >= 0) {
        const auto* column = shape->GetLayerDefn()->GetFieldDefn(field.ogrIndex);
        told.Width = column->GetWidth();
        told.Decimals = column->GetPrecision();
      }
      fields_.push_back(std::move(told));
    }
    const char* encoding = shape->GetMetadataItem("SOURCE_ENCODING", "SHAPEFILE");
    if (encoding && *encoding != '\0') encoding_ = encoding;
    recoded_.resize(fields_.size());
  }

  const std::vector<host::DissolveField>& Fields() override { return fields_; }
  std::string Encoding() override { return encoding_; }

  void Choose(const std::vector<std::size_t>& fields) override {
    RowRequest request;
    request.clause = definition_;
    for (const std::size_t field : fields) {
      request.fields.push_back(static_cast<std::int32_t>(field));
    }
    rows_.emplace(OpenRows(*source_, request));
  }

  bool Next() override {
    do {
      row_.reset((*rows_)->GetNextFeature());
    } while (row_ && only_ && !std::binary_search(only_->begin(), only_->end(), row_->GetFID()));
    if (!row_ && CPLGetLastErrorType() >= CE_Failure) {
      host::Fail(failure::kDeviceIo, CPLGetLastErrorMsg());
    }
    return row_ != nullptr;
  }

  host::DissolveCell Cell(std::size_t index) override {
    using Kind = host::DissolveCell::Kind;
    const SourceField& field = source_->Fields()[index];
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
  std::string encoding_ = "UTF-8";
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
