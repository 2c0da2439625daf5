// SPDX-License-Identifier: GPL-2.0-or-later
// A table in a file.
#pragma once

#include <memory>
#include <optional>

#include "hosts/columns/dbffile.h"
#include "hosts/columns/rows.h"
#include "hosts/columns/where.h"
#include "hosts/data/handlepool.h"
#include "hosts/data/tablesource.h"

namespace brelmon::data {

/// How a value is kept by GDAL.
struct OgrPlace {
  int index = -1;  // -1 for the row's identifier
  OGRFieldType type = OFTInteger64;
};

/// A table that GDAL reads, opened as often as it is read: each reader has a handle of its own.
class VectorSource : public TableSource, public std::enable_shared_from_this<VectorSource> {
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

  const OGRSpatialReference* ReferenceSystem() override;
  std::string WorkspacePath() const override;
  Text TableName() const override;

  /// A fresh reading state without filters. Fails with 53 where the data is not reached.
  Handle Open();
  /// Rows without any filter.
  std::int64_t TotalRows();
  bool Extent(OGREnvelope& extent) override;
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
  columns::RowIds IdsTouching(const Text& clause, const OGRGeometry& shape, bool justOne) override;

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

  std::vector<columns::Field> fields_;
  std::vector<OgrPlace> places_;  // one for each field
  bool crsRead_ = false, isShapefile_ = false;
  std::string recode_;  // encoding of its texts where GDAL doesn't see to it
  columns::CodePage page_;
  std::unique_ptr<OGRSpatialReference> crs_;
  std::string layerName_;
  std::int64_t total_ = -1;
  bool dense_ = false;
  std::optional<std::shared_ptr<const columns::DbfSource>> plain_;
};

}  // namespace brelmon::data
