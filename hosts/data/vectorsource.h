// SPDX-License-Identifier: GPL-2.0-or-later
// One table of data, opened as often as it is read: each reader has a handle of its own.
#pragma once

#include <memory>
#include <optional>

#include "hosts/columns/dbffile.h"
#include "hosts/columns/rows.h"
#include "hosts/columns/where.h"
#include "hosts/data/handlepool.h"
#include "hosts/data/sourceaddress.h"

namespace brelmon::data {

/// What every layer's shape column is called, whatever its source calls it.
inline constexpr TextView kShapeField = u"Shape";

/// How a value is kept by GDAL.
struct OgrPlace {
  int index = -1;  // -1 for the row's identifier
  OGRFieldType type = OFTInteger64;
};

class VectorSource : public columns::IRowSource, public std::enable_shared_from_this<VectorSource> {
 public:
  /// A reader's own state. Goes back to its source, which it keeps alive.
  class Handle {
   public:
    Handle(std::shared_ptr<VectorSource> source, HandlePool::Handle opened)
        : source_(std::move(source)), opened_(std::move(opened)) {}
    Handle(Handle&&) = default;
    ~Handle();
    OGRLayer* operator->() const { return opened_.second; }
    OGRLayer& operator*() const { return *opened_.second; }

   private:
    std::shared_ptr<VectorSource> source_;
    HandlePool::Handle opened_;
  };

  /// Reads the table's shape at once; one that can't be opened is kept with its problem.
  explicit VectorSource(SourceAddress address);
  ~VectorSource() override;

  bool Valid() const { return problem_.empty(); }
  const std::string& Problem() const { return problem_; }
  const SourceAddress& Address() const { return address_; }
  bool HasGeometry() const { return hasGeometry_; }
  /// Traditional axis order; null where the data tells none.
  const OGRSpatialReference* ReferenceSystem();
  /// "Shapefile", "GeoPackage", "Personal Geodatabase", ...
  const Text& Kind() const { return kind_; }
  /// Folder or database that holds it.
  std::string WorkspacePath() const;
  Text TableName() const;
  /// Whether where-clauses go to the source's own SQL.
  bool HasOwnSql() const { return ownSql_; }

  /// A fresh reading state without filters. Fails with 53 where the data is not reached.
  Handle Open();
  /// Rows without any filter.
  std::int64_t TotalRows();
  bool Extent(OGREnvelope& extent);
  const OgrPlace& PlaceOf(std::size_t field) const { return places_[field]; }
  /// UTF-8 of a text as GDAL gives it; it may be in `room`, which is overwritten.
  const char* Utf8(const char* bytes, std::string& room) const;

  // IRowSource.
  const std::vector<columns::Field>& Fields() const override { return fields_; }
  const columns::CodePage& Encoding() override { return page_; }
  void TryClause(TextView clause) override;
  std::unique_ptr<columns::IBatchReader> Read(const columns::RowRequest& request) override;
  std::int64_t CountRows(const Text& clause) override;
  columns::RowIds IdsOfRows(const Text& clause, bool justOne) override;
  /// Rows under the clause whose shapes intersect `shape`, which is in the source's reference
  /// system.
  columns::RowIds IdsTouching(const Text& clause, const OGRGeometry& shape, bool justOne);

 private:
  /// Without a layer where there is none, with the reason.
  HandlePool::Handle OpenDataset(std::string& problem) const;
  void Describe(GDALDataset& dataset, OGRLayer& layer);
  void ReadFields(OGRLayer& layer);
  void CountAll();
  void CountOneByOne();
  bool HasDenseIds();
  std::string DbfPath() const;
  /// The way to read a local dBASE table without GDAL; null where there is none.
  const std::shared_ptr<const columns::DbfSource>& PlainTable();
  std::unique_ptr<columns::IBatchReader> ReadWhole(const columns::RowRequest& request);

  SourceAddress address_;
  std::string problem_;
  Text kind_;
  std::vector<columns::Field> fields_;
  std::vector<OgrPlace> places_;  // one for each field
  bool crsRead_ = false, hasGeometry_ = false, ownSql_ = false, isShapefile_ = false;
  std::string recode_;  // encoding of its texts where GDAL doesn't see to it
  columns::CodePage page_;
  std::unique_ptr<OGRSpatialReference> crs_;
  std::string layerName_;
  std::int64_t total_ = -1;
  bool dense_ = false;
  std::optional<std::shared_ptr<const columns::DbfSource>> plain_;
};

}  // namespace brelmon::data
