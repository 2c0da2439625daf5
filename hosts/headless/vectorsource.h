// SPDX-License-Identifier: GPL-2.0-or-later
// One table of data, opened as often as it is read: each reader has a handle of its own.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <optional>

#include "hosts/headless/sourceaddress.h"
#include "platform/table.h"

namespace brelmon::headless {

struct SourceField {
  Text name;
  FieldType type = FieldType::String;
  int ogrIndex = -1;  // -1 for the row's identifier
  OGRFieldType ogrType = OFTInteger64;
};

class DbfTable;

class VectorSource : public std::enable_shared_from_this<VectorSource> {
 public:
  /// A reader's own state. Goes back to its source, which must live as long.
  class Handle {
   public:
    Handle(std::shared_ptr<VectorSource> source, GDALDatasetUniquePtr dataset, OGRLayer* layer)
        : source_(std::move(source)), dataset_(std::move(dataset)), layer_(layer) {}
    Handle(Handle&&) = default;
    ~Handle();
    OGRLayer* operator->() const { return layer_; }
    OGRLayer& operator*() const { return *layer_; }

   private:
    std::shared_ptr<VectorSource> source_;
    GDALDatasetUniquePtr dataset_;
    OGRLayer* layer_;
  };

  /// Reads the table's shape at once; one that can't be opened is kept with its problem.
  explicit VectorSource(SourceAddress address);

  bool Valid() const { return problem_.empty(); }
  const std::string& Problem() const { return problem_; }
  const SourceAddress& Address() const { return address_; }
  bool HasGeometry() const { return hasGeometry_; }
  const Text& GeometryField() const { return geometryField_; }
  /// Traditional axis order; null where the data tells none.
  const OGRSpatialReference* ReferenceSystem() const { return crs_.get(); }
  const std::vector<SourceField>& Fields() const { return fields_; }
  std::int32_t FindField(TextView name) const;  // regardless of case; -1 if there is none
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
  GIntBig TotalRows();
  /// Whether the identifiers are 0 to TotalRows() - 1.
  bool HasDenseIds();
  bool Extent(OGREnvelope& extent);
  /// The file of a shapefile's or dBASE table's attributes; empty for other sources.
  std::string DbfPath() const;
  /// The way to read that file without GDAL; null where there is none.
  const std::shared_ptr<const DbfTable>& PlainTable();

  /// Whether texts need TextFromSource; else GDAL gives UTF-8.
  bool RecodesTexts() const { return !recode_.empty(); }
  /// Between this process and a source whose texts are in another encoding.
  Text TextFromSource(const char* bytes) const;
  std::string TextForSource(TextView text) const;

 private:
  GDALDatasetUniquePtr OpenDataset() const;
  OGRLayer* LayerOf(GDALDataset& dataset) const;
  void ReadShape(GDALDataset& dataset, OGRLayer& layer);
  void ReadFields(OGRLayer& layer);
  void CountRows();

  SourceAddress address_;
  std::string problem_;
  Text kind_;
  std::vector<SourceField> fields_;
  bool hasGeometry_ = false, ownSql_ = false, isShapefile_ = false;
  Text geometryField_;
  std::string recode_;  // encoding of its texts where GDAL doesn't see to it
  std::unique_ptr<OGRSpatialReference> crs_;
  std::string layerName_;
  GIntBig total_ = -1;
  bool dense_ = false;
  std::optional<std::shared_ptr<const DbfTable>> plain_;
  std::vector<std::pair<GDALDatasetUniquePtr, OGRLayer*>> idle_;
};

/// 32 bits where they do, else a double.
Value WholeNumber(GIntBig number);

/// A value of the present row; null where the source has none.
Value ReadValue(const VectorSource& source, const OGRFeature& row, const SourceField& field);

}  // namespace brelmon::headless
