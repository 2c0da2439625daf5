// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of a source under clauses: which of the ways to read is taken.
#include <cpl_string.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "hosts/columns/dbfrecords.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/hostfailure.h"
#include "hosts/data/clauses.h"
#include "hosts/data/ogrreader.h"
#include "hosts/data/sqlitereader.h"

namespace brelmon::data {
namespace {

using columns::Batch, columns::Field, columns::IBatchReader, columns::RowIds, columns::RowRequest;

/// An index of more records is large enough to be let go and read again.
constexpr std::int64_t kManyRecords = 2'000'000;

[[noreturn]] void Refuse(const std::string& reason) {
  host::Fail(failure::kRefused, "The query was refused: " + reason + ".");
}

/// Names that a clause may use.
std::vector<Text> KnownNames(const VectorSource& source) {
  std::vector<Text> names;
  for (const Field& field : source.Fields()) names.push_back(FromUtf8(field.Name));
  if (!source.HasOwnSql()) names.emplace_back(u"FID");
  return names;
}

/// A source with SQL of its own looks at a clause only when it is asked for rows.
void TryReading(VectorSource& source, const Text& clause) {
  const VectorSource::Handle rows = source.Open();
  const ErrorWatch watch;
  if (rows->SetAttributeFilter(ToUtf8(clause).c_str()) == OGRERR_NONE) {
    rows->ResetReading();
    const OGRFeatureUniquePtr first(rows->GetNextFeature());
    if (watch.Failure().empty()) return;
  }
  Refuse(watch.Failure());
}

/// Few rows of many are fetched one by one.
bool IsFew(VectorSource& source, const RowRequest& request) {
  return request.Only && columns::IsBlank(request.Clause) &&
         static_cast<std::int64_t>(request.Only->size()) * 8 < source.TotalRows() &&
         source.Open()->TestCapability(OLCRandomRead);
}

/// The type that the driver makes of a field that the plain reader knows.
bool Agrees(const columns::DbfPlace& place, OGRFieldType type) {
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

}  // namespace

void VectorSource::TryClause(TextView clause) {
  if (columns::IsBlank(clause)) return;
  if (clause.find(u'\0') != TextView::npos) Refuse("it holds a character that no query can hold");
  const columns::ClauseNames names = columns::NamesIn(clause);
  if (!names.fault.empty()) Refuse(names.fault);
  if (const auto unknown = columns::UnknownField(names, KnownNames(*this))) {
    Refuse("there is no field \"" + ToUtf8(*unknown) + "\"");
  }
  if (ownSql_) return TryReading(*this, Text(clause));
  Open();  // there at all
  WhereOf(clause, fields_);
}

std::unique_ptr<IBatchReader> VectorSource::Read(const RowRequest& request) {
  if (IsFew(*this, request)) return FetchFeatures(shared_from_this(), request.Fields, request.Only);
  auto rows = ReadWhole(request);
  if (!request.Only) return rows;
  return columns::Thinned(std::move(rows),
                          [only = request.Only](Batch& batch) { columns::KeepOnly(batch, *only); });
}

/// Under the clause, without regard to identifiers.
std::unique_ptr<IBatchReader> VectorSource::ReadWhole(const RowRequest& request) {
  if (ownSql_) {
    auto rows = ReadSqlite(shared_from_this(), request.Fields, request.Clause);
    return rows ? std::move(rows)
                : ReadFeatures(shared_from_this(), request.Fields, request.Clause);
  }
  std::shared_ptr<const columns::Where> where;
  std::set<std::size_t> fields(request.Fields.begin(), request.Fields.end());
  if (!columns::IsBlank(request.Clause)) {
    where = WhereOf(request.Clause, fields_);
    fields.insert(where->Fields().begin(), where->Fields().end());
  }
  const std::vector<std::size_t> read(fields.begin(), fields.end());
  const auto plain = PlainTable();
  // GDAL keeps the index of a shapefile's shapes, which nobody needs while its table is read.
  if (plain && plain->layout.records > kManyRecords) HandlePool::Instance().Drop(this);
  auto rows = plain ? columns::ReadDbf(plain, read) : ReadFeatures(shared_from_this(), read, {});
  if (!where) return rows;
  return columns::Thinned(std::move(rows), [where](Batch& batch) { where->Keep(batch); });
}

std::int64_t VectorSource::CountRows(const Text& clause) {
  if (columns::IsBlank(clause)) return TotalRows();
  if (!ownSql_) return IRowSource::CountRows(clause);
  const Handle rows = Open();
  const ErrorWatch watch;
  rows->SetAttributeFilter(ToUtf8(clause).c_str());
  const std::int64_t count = rows->GetFeatureCount(TRUE);
  CheckReading(*this, watch);
  if (count < 0) Refuse("its rows can't be counted");
  return count;
}

RowIds VectorSource::IdsOfRows(const Text& clause, bool justOne) {
  if (!columns::IsBlank(clause) || justOne || !HasDenseIds()) {
    return IRowSource::IdsOfRows(clause, justOne);
  }
  RowIds ids(static_cast<std::size_t>(TotalRows()));
  std::iota(ids.begin(), ids.end(), std::int64_t{0});
  return ids;
}

RowIds VectorSource::IdsTouching(const Text& clause, const OGRGeometry& shape, bool justOne) {
  RowIds under;
  if (!columns::IsBlank(clause)) under = IdsOfRows(clause, false);
  const Handle rows = Open();
  OGREnvelope box;
  shape.getEnvelope(&box);
  rows->SetSpatialFilterRect(box.MinX, box.MinY, box.MaxX, box.MaxY);
  auto* handle = OGRGeometry::ToHandle(const_cast<OGRGeometry*>(&shape));
  const OGRPreparedGeometryUniquePtr prepared(OGRCreatePreparedGeometry(handle));
  RowIds ids;
  const ErrorWatch watch;
  while (const OGRFeatureUniquePtr row{rows->GetNextFeature()}) {
    const OGRGeometry* own = row->GetGeometryRef();
    if (own == nullptr || own->IsEmpty()) continue;
    if (!columns::IsBlank(clause) &&
        !std::binary_search(under.begin(), under.end(), std::int64_t{row->GetFID()})) {
      continue;
    }
    auto* other = OGRGeometry::ToHandle(const_cast<OGRGeometry*>(own));
    const bool hit = prepared ? OGRPreparedGeometryIntersects(prepared.get(), other) != 0
                              : own->Intersects(&shape) != 0;
    if (hit) ids.push_back(row->GetFID());
    if (hit && justOne) break;
  }
  CheckReading(*this, watch);
  std::sort(ids.begin(), ids.end());
  return ids;
}

std::int64_t VectorSource::TotalRows() {
  if (total_ < 0) CountAll();
  return total_;
}

bool VectorSource::HasDenseIds() {
  if (total_ < 0) CountAll();
  return dense_;
}

void VectorSource::CountOneByOne() {
  std::int64_t read = 0;
  total_ = -1;  // unknown until the last one was read
  const auto all = ReadFeatures(shared_from_this(), {}, {});
  while (const auto batch = all->Next()) read += static_cast<std::int64_t>(batch->Live.size());
  total_ = read;
}

void VectorSource::CountAll() {
  const Handle rows = Open();
  const ErrorWatch watch;
  const std::int64_t total = rows->GetFeatureCount(TRUE);
  CheckReading(*this, watch);
  if (total < 0) return CountOneByOne();  // which tells the reason
  total_ = total;
  if (!isShapefile_) return;
  // The count of a dBASE file takes in rows that are marked as deleted.
  const std::optional<columns::DbfRecords> records = columns::CountDbfRecords(DbfPath());
  if (records && records->total == total_) {
    dense_ = records->deleted == 0;
    total_ -= records->deleted;
  } else {
    CountOneByOne();
  }
}

const std::shared_ptr<const columns::DbfSource>& VectorSource::PlainTable() {
  if (plain_) return *plain_;
  plain_ = nullptr;
  const std::string path = DbfPath();
  const auto layout = path.empty() ? std::nullopt : columns::ReadDbfLayout(path);
  const bool same = layout && page_.IsKnown() && layout->fields.size() == fields_.size() &&
                    Open()->GetFeatureCount(TRUE) == layout->records;
  if (!same) return *plain_;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (!Agrees(layout->fields[i], places_[i].type)) return *plain_;
  }
  // What is odd is GDAL's to read.
  const auto odd = [source = weak_from_this()](std::int64_t record, std::size_t field,
                                               columns::ColumnBuffer& column, std::size_t row,
                                               columns::TextRoom& texts) {
    const auto self = source.lock();
    if (!self) host::Fail(failure::kNoSuchObject);
    const ErrorWatch watch;
    const OGRFeatureUniquePtr feature(self->Open()->GetFeature(record));
    CheckReading(*self, watch);
    if (!feature) {
      host::Fail(failure::kDeviceIo, "A row can't be read: " + self->Address().path);
    }
    TakeValue(*self, *feature, field, column, row, texts);
  };
  plain_ = std::make_shared<columns::DbfSource>(columns::DbfSource{*layout, fields_, page_, odd});
  return *plain_;
}

}  // namespace brelmon::data
