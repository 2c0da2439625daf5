// SPDX-License-Identifier: GPL-2.0-or-later
// Fields by GDAL's types, texts by code page, clauses by GDAL's evaluation.
#include "hosts/headless/dbfrows.h"

#include <cpl_string.h>

#include <algorithm>

#include "hosts/common/hostfailure.h"
#include "hosts/columns/querytokens.h"

namespace brelmon::headless {
namespace {

using Kind = DbfCell::Kind;

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// One unit a byte, and ASCII its own.
bool IsSingleByte(const std::string& encoding) {
  return STARTS_WITH_CI(encoding.c_str(), "CP125") ||
         STARTS_WITH_CI(encoding.c_str(), "WINDOWS-125") ||
         STARTS_WITH_CI(encoding.c_str(), "ISO-8859-") || EQUAL(encoding.c_str(), "CP437") ||
         EQUAL(encoding.c_str(), "CP850");
}

/// Units of the 256 bytes, as GDAL recodes them.
Text UnitsOf(const std::string& encoding) {
  Text units(256, u'\0');
  CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
  for (int byte = 0; byte < 256; ++byte) {
    const char bytes[] = {static_cast<char>(byte), '\0'};
    char* utf8 = CPLRecode(bytes, encoding.c_str(), CPL_ENC_UTF8);
    const Text unit = FromUtf8(utf8);
    CPLFree(utf8);
    if (unit.size() == 1 && unit[0] != u'\uFFFD') units[static_cast<std::size_t>(byte)] = unit[0];
  }
  CPLErrorReset();
  return units;
}

/// The type that the driver makes of a field that this reader knows.
bool Agrees(const DbfPlace& place, OGRFieldType type) {
  switch (place.type) {
    case 'C':
      return type == OFTString;
    case 'N':
    case 'F':
      return type == OFTInteger || type == OFTInteger64 || type == OFTReal;
    case 'D':
      return type == OFTDate && place.width == 8;
    default:
      return true;  // odd throughout
  }
}

void SetTested(OGRFeature& feature, const DbfTable& table, const SourceField& field,
               const DbfCell& cell) {
  const int index = field.ogrIndex;
  switch (cell.is) {
    case Kind::Whole:
      if (field.ogrType == OFTInteger64) return feature.SetField(index, GIntBig{cell.whole});
      return feature.SetField(index, static_cast<int>(cell.whole));
    case Kind::Real:
      return feature.SetField(index, cell.real);
    case Kind::Date:
      return feature.SetField(index, cell.year, cell.month, cell.day);
    case Kind::Text:
      return feature.SetField(index, table.ToUtf8(cell.text).c_str());
    default:
      feature.SetFieldNull(index);
  }
}

}  // namespace

std::shared_ptr<const DbfTable> DbfTable::Of(VectorSource& source) {
  const std::string path = source.DbfPath();
  const auto layout = path.empty() ? std::nullopt : ReadDbfLayout(path);
  if (!layout) return nullptr;
  const VectorSource::Handle handle = source.Open();
  if (handle->GetFeatureCount(TRUE) != layout->records) return nullptr;
  const OGRFeatureDefn& definition = *handle->GetLayerDefn();
  if (definition.GetFieldCount() != static_cast<int>(layout->fields.size())) return nullptr;
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    const auto& place = layout->fields[static_cast<std::size_t>(i)];
    if (!Agrees(place, definition.GetFieldDefn(i)->GetType())) return nullptr;
  }
  const auto table = std::make_shared<DbfTable>();
  table->layout_ = *layout;
  const char* encoding = handle->GetMetadataItem("SOURCE_ENCODING", "SHAPEFILE");
  return table->Understands(encoding ? encoding : "") ? table : nullptr;
}

bool DbfTable::Understands(const std::string& encoding) {
  utf8_ = encoding.empty() || EQUAL(encoding.c_str(), CPL_ENC_UTF8);
  if (!utf8_ && !IsSingleByte(encoding)) return false;
  if (!utf8_) units_ = UnitsOf(encoding);
  return true;
}

DbfCell DbfTable::Cell(std::string_view record, const SourceField& field) const {
  const DbfPlace& place = layout_.fields[static_cast<std::size_t>(field.ogrIndex)];
  const std::string_view bytes = record.substr(place.offset, place.width);
  if (place.type == 'D') return DateCell(bytes);
  if (place.type == 'N' || place.type == 'F') {
    return field.ogrType == OFTReal ? RealCell(bytes) : WholeCell(bytes);
  }
  if (place.type != 'C') return {};
  DbfCell cell = TextCell(bytes);
  const bool known = utf8_ || std::all_of(cell.text.begin(), cell.text.end(), [this](char byte) {
                       return units_[static_cast<unsigned char>(byte)] != 0;
                     });
  if (!known) cell.is = Kind::Odd;
  return cell;
}

bool DbfTable::IsUtf8(std::string_view bytes) const { return utf8_ || IsAscii(bytes); }

Text DbfTable::ToText(std::string_view bytes) const {
  if (utf8_) return FromUtf8(bytes);
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [this](char byte) { return units_[static_cast<unsigned char>(byte)]; });
  return text;
}

std::string DbfTable::ToUtf8(std::string_view bytes) const {
  return IsUtf8(bytes) ? std::string(bytes) : brelmon::ToUtf8(ToText(bytes));
}

std::unique_ptr<DbfRows> DbfRows::Open(const std::shared_ptr<VectorSource>& source,
                                       const Text& clause) {
  const auto& table = source->PlainTable();
  const columns::ClauseNames names = columns::NamesIn(clause);
  if (!table || TestsGeometry(names)) return nullptr;
  std::unique_ptr<DbfRows> rows(new DbfRows);
  rows->table_ = table;
  rows->scan_ = std::make_unique<DbfScan>(table->Layout());
  if (columns::IsBlank(clause)) return rows;
  rows->gdal_.emplace(source->Open());
  OGRLayer& layer = **rows->gdal_;
  rows->query_ = std::make_unique<OGRFeatureQuery>();
  if (rows->query_->Compile(&layer, source->TextForSource(clause).c_str()) != OGRERR_NONE)
    return nullptr;
  rows->tested_.reset(OGRFeature::CreateFeature(layer.GetLayerDefn()));
  for (const Text& name : names.fields) {
    const std::int32_t field = source->FindField(name);
    if (field >= 0)
      rows->testedFields_.push_back(source->Fields()[static_cast<std::size_t>(field)]);
  }
  return rows;
}

bool DbfRows::Next() {
  while (scan_->Next()) {
    if (!query_ || Matches()) return true;
  }
  return false;
}

bool DbfRows::Matches() {
  tested_->SetFID(Id());
  for (const SourceField& field : testedFields_) {
    const DbfCell cell = table_->Cell(Record(), field);
    if (cell.is == Kind::Odd) {
      const OGRFeatureUniquePtr whole((*gdal_)->GetFeature(Id()));
      return whole && query_->Evaluate(whole.get()) != 0;
    }
    SetTested(*tested_, *table_, field, cell);
  }
  return query_->Evaluate(tested_.get()) != 0;
}

Value ReadValue(VectorSource& source, const DbfTable& table, std::string_view record, GIntBig id,
                const SourceField& field) {
  const DbfCell cell = table.Cell(record, field);
  switch (cell.is) {
    case Kind::Null:
      return Null();
    case Kind::Whole:
      return WholeNumber(cell.whole);
    case Kind::Real:
      return cell.real;
    case Kind::Date:
      return ToDate({cell.year, cell.month, cell.day});
    case Kind::Text:
      return table.ToText(cell.text);
    case Kind::Odd:
      break;
  }
  const OGRFeatureUniquePtr row(source.Open()->GetFeature(id));
  if (!row) host::Fail(failure::kDeviceIo, "A row can't be read: " + source.Address().path);
  return ReadValue(source, *row, field);
}

}  // namespace brelmon::headless
