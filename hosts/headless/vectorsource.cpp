// SPDX-License-Identifier: GPL-2.0-or-later
// Opening data and describing its rows.
#include "hosts/headless/vectorsource.h"

#include <cpl_conv.h>
#include <cpl_string.h>

#include <algorithm>
#include <filesystem>

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"
#include "hosts/common/sourcekind.h"
#include "hosts/headless/dbfrecords.h"
#include "hosts/headless/dbfrows.h"

namespace brelmon::headless {
namespace {

constexpr std::size_t kIdleHandles = 2;

FieldType TypeOf(const OGRFieldDefn& field) {
  switch (field.GetType()) {
    case OFTInteger:
      return field.GetSubType() == OFSTInt16 || field.GetSubType() == OFSTBoolean
                 ? FieldType::SmallInteger
                 : FieldType::Integer;
    case OFTInteger64:
      return FieldType::Double;
    case OFTReal:
      return field.GetSubType() == OFSTFloat32 ? FieldType::Single : FieldType::Double;
    case OFTDate:
    case OFTDateTime:
      return FieldType::Date;
    case OFTBinary:
      return FieldType::Blob;
    default:
      return FieldType::String;
  }
}

CPLStringList OpenOptions(const SourceAddress& address, bool shapefile) {
  CPLStringList options;
  for (const std::string& option : address.openOptions) options.AddString(option.c_str());
  if (shapefile && !address.encoding.empty()) {
    options.SetNameValue("ENCODING", address.encoding.c_str());
  }
  return options;
}

bool IsShapefileName(const std::string& path) {
  const char* extension = CPLGetExtension(path.c_str());
  return EQUAL(extension, "shp") || EQUAL(extension, "dbf");
}

/// A shapefile without its table has no attributes at all.
bool LacksTable(const std::string& path) {
  if (!EQUAL(CPLGetExtension(path.c_str()), "shp") || path.rfind("/vsi", 0) == 0) return false;
  return !host::FileExists(host::TrueCase(CPLResetExtension(path.c_str(), "dbf")));
}

}  // namespace

VectorSource::VectorSource(SourceAddress address)
    : address_(std::move(address)), problem_(address_.problem) {
  kind_ = host::KindOf(address_.path, "");
  if (problem_.empty() && LacksTable(address_.path)) problem_ = "the .dbf file is missing";
  if (!problem_.empty()) return;
  GDALDatasetUniquePtr dataset = OpenDataset();
  OGRLayer* layer = dataset ? LayerOf(*dataset) : nullptr;
  if (layer == nullptr) {
    problem_ =
        dataset ? "there is no table \"" + address_.layer + "\" in it" : CPLGetLastErrorMsg();
    if (problem_.empty()) problem_ = "it can't be opened";
    return;
  }
  ReadShape(*dataset, *layer);
  idle_.emplace_back(std::move(dataset), layer);
}

GDALDatasetUniquePtr VectorSource::OpenDataset() const {
  CPLStringList drivers;
  for (const std::string& driver : address_.drivers) drivers.AddString(driver.c_str());
  CPLErrorReset();
  return GDALDatasetUniquePtr(GDALDataset::Open(
      address_.path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
      drivers.empty() ? nullptr : drivers.List(),
      OpenOptions(address_, IsShapefileName(address_.path)).List(), nullptr));
}

OGRLayer* VectorSource::LayerOf(GDALDataset& dataset) const {
  if (!address_.layer.empty()) return dataset.GetLayerByName(address_.layer.c_str());
  return dataset.GetLayer(std::max(address_.layerNumber, 0));
}

void VectorSource::ReadShape(GDALDataset& dataset, OGRLayer& layer) {
  const std::string driver = dataset.GetDriver() ? dataset.GetDriver()->GetDescription() : "";
  kind_ = host::KindOf(address_.path, driver);
  isShapefile_ = driver == "ESRI Shapefile";
  ownSql_ = host::HasSqlOfItsOwn(driver);
  layerName_ = layer.GetName();
  const bool elsewhere =
      driver == "CSV" && !address_.encoding.empty() && !EQUAL(address_.encoding.c_str(), "UTF-8");
  if (elsewhere) recode_ = address_.encoding;
  hasGeometry_ = layer.GetGeomType() != wkbNone;
  const std::string column = layer.GetGeometryColumn();
  geometryField_ = column.empty() ? Text(u"Shape") : FromUtf8(column);
  if (const OGRSpatialReference* crs = layer.GetSpatialRef()) {
    crs_.reset(crs->Clone());
    crs_->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  }
  ReadFields(layer);
}

void VectorSource::ReadFields(OGRLayer& layer) {
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  const std::string id = layer.GetFIDColumn();
  if (!id.empty() && definition.GetFieldIndex(id.c_str()) < 0) {
    fields_.push_back({FromUtf8(id), FieldType::OID, -1, OFTInteger64});
  }
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    const OGRFieldDefn& field = *definition.GetFieldDefn(i);
    fields_.push_back({TextFromSource(field.GetNameRef()), TypeOf(field), i, field.GetType()});
  }
}

std::int32_t VectorSource::FindField(TextView name) const {
  const auto hit = std::find_if(fields_.begin(), fields_.end(), [&](const SourceField& field) {
    return EqualNoCase(field.name, name);
  });
  return hit == fields_.end() ? -1 : static_cast<std::int32_t>(hit - fields_.begin());
}

std::string VectorSource::WorkspacePath() const {
  // One table a file: the folder is the workspace.
  return host::HoldsOneTable(kind_) ? std::filesystem::path(address_.path).parent_path().string()
                                    : address_.path;
}

Text VectorSource::TableName() const {
  if (!layerName_.empty()) return FromUtf8(layerName_);
  return FromUtf8(std::filesystem::path(address_.path).stem().string());
}

VectorSource::Handle VectorSource::Open() {
  if (!Valid()) {
    host::Fail(failure::kFileNotFound,
               "The data can't be reached: " + address_.path + ": " + problem_);
  }
  if (!idle_.empty()) {
    auto [dataset, layer] = std::move(idle_.back());
    idle_.pop_back();
    return {shared_from_this(), std::move(dataset), layer};
  }
  GDALDatasetUniquePtr dataset = OpenDataset();
  OGRLayer* layer = dataset ? LayerOf(*dataset) : nullptr;
  if (layer == nullptr) {
    host::Fail(failure::kFileNotFound, "The data can't be reached any more: " + address_.path);
  }
  return {shared_from_this(), std::move(dataset), layer};
}

VectorSource::Handle::~Handle() {
  if (!dataset_ || source_->idle_.size() >= kIdleHandles) return;
  layer_->SetAttributeFilter(nullptr);
  layer_->SetSpatialFilter(nullptr);
  layer_->SetIgnoredFields(nullptr);
  layer_->ResetReading();
  source_->idle_.emplace_back(std::move(dataset_), layer_);
}

GIntBig VectorSource::TotalRows() {
  if (total_ < 0) CountRows();
  return total_;
}

bool VectorSource::HasDenseIds() {
  if (total_ < 0) CountRows();
  return dense_;
}

void VectorSource::CountRows() {
  const Handle rows = Open();
  total_ = rows->GetFeatureCount(TRUE);
  if (total_ < 0) host::Fail(failure::kDeviceIo, "The rows can't be counted: " + address_.path);
  if (!isShapefile_) return;
  // The count of a dBASE file takes in rows that are marked as deleted.
  const std::optional<DbfRecords> records = CountDbfRecords(DbfPath());
  if (!records) return;
  dense_ = records->deleted == 0 && records->total == total_;
  if (records->total == total_) total_ -= records->deleted;
}

std::string VectorSource::DbfPath() const {
  if (!isShapefile_ || !IsShapefileName(address_.path)) return {};
  return host::TrueCase(CPLResetExtension(address_.path.c_str(), "dbf"));
}

const std::shared_ptr<const DbfTable>& VectorSource::PlainTable() {
  if (!plain_) plain_ = DbfTable::Of(*this);
  return *plain_;
}

bool VectorSource::Extent(OGREnvelope& extent) {
  return hasGeometry_ && Valid() && Open()->GetExtent(&extent, TRUE) == OGRERR_NONE;
}

Text VectorSource::TextFromSource(const char* bytes) const {
  if (recode_.empty()) return FromUtf8(bytes);
  char* utf8 = CPLRecode(bytes, recode_.c_str(), CPL_ENC_UTF8);
  Text text = FromUtf8(utf8);
  CPLFree(utf8);
  return text;
}

std::string VectorSource::TextForSource(TextView text) const {
  const std::string utf8 = ToUtf8(text);
  if (recode_.empty()) return utf8;
  char* bytes = CPLRecode(utf8.c_str(), CPL_ENC_UTF8, recode_.c_str());
  std::string result = bytes;
  CPLFree(bytes);
  return result;
}

}  // namespace brelmon::headless
