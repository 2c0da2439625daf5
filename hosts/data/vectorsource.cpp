// SPDX-License-Identifier: GPL-2.0-or-later
// Opening data and describing its rows.
#include "hosts/data/vectorsource.h"

#include <cpl_conv.h>
#include <cpl_string.h>

#include <algorithm>
#include <filesystem>

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"
#include "hosts/data/codepages.h"
#include "hosts/data/openpolicy.h"
#include "hosts/data/sourcekind.h"

namespace brelmon::data {
namespace {

using columns::Field, columns::Storage;

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

Storage StorageOf(OGRFieldType type) {
  switch (type) {
    case OFTInteger:
    case OFTInteger64:
      return Storage::Whole;
    case OFTReal:
      return Storage::Real;
    case OFTDate:
    case OFTDateTime:
      return Storage::Moment;
    case OFTString:
      return Storage::Text;
    default:
      return Storage::Other;
  }
}

bool IsShapefileName(const std::string& path) {
  const char* extension = CPLGetExtension(path.c_str());
  return EQUAL(extension, "shp") || EQUAL(extension, "dbf");
}

}  // namespace

VectorSource::VectorSource(SourceAddress address) : TableSource(std::move(address)) {
  kind_ = KindOf(address_.path, "");
  if (!problem_.empty()) return;
  HandlePool::Handle opened = OpenDataset(problem_);
  if (opened.second == nullptr) return;
  Describe(*opened.first, *opened.second);
  HandlePool::Instance().Give(this, std::move(opened));
}

VectorSource::~VectorSource() { HandlePool::Instance().Drop(this); }

HandlePool::Handle VectorSource::OpenDataset(std::string& problem) const {
  SourceAddress address = address_;
  if (IsShapefileName(address.path) && !address.encoding.empty()) {
    address.openOptions.push_back("ENCODING=" + address.encoding);
  }
  GDALDatasetUniquePtr dataset = OpenData(address, Content::Rows, problem);
  if (!dataset && problem == kTooManyFiles) {
    HandlePool::Instance().DropAll();
    dataset = OpenData(address, Content::Rows, problem);
  }
  if (!dataset) return {};
  OGRLayer* layer = address.layer.empty() ? dataset->GetLayer(std::max(address.layerNumber, 0))
                                          : dataset->GetLayerByName(address.layer.c_str());
  if (layer == nullptr) problem = "there is no table \"" + address.layer + "\" in it";
  return {std::move(dataset), layer};
}

void VectorSource::Describe(GDALDataset& dataset, OGRLayer& layer) {
  const std::string driver = dataset.GetDriver() ? dataset.GetDriver()->GetDescription() : "";
  kind_ = KindOf(address_.path, driver);
  isShapefile_ = driver == "ESRI Shapefile";
  ownSql_ = HasSqlOfItsOwn(driver);
  layerName_ = layer.GetName();
  const bool elsewhere =
      driver == "CSV" && !address_.encoding.empty() && !EQUAL(address_.encoding.c_str(), "UTF-8");
  if (elsewhere) recode_ = address_.encoding;
  const char* encoding = layer.GetMetadataItem("SOURCE_ENCODING", "SHAPEFILE");
  page_ = CodePageNamed(encoding ? encoding : "");
  hasGeometry_ = layer.GetGeomType() != wkbNone;
  ReadFields(layer);
}

void VectorSource::ReadFields(OGRLayer& layer) {
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  const std::string id = layer.GetFIDColumn();
  if (!id.empty() && definition.GetFieldIndex(id.c_str()) < 0) {
    Field field{id, FieldType::OID, Storage::Whole};
    field.IsId = true;
    fields_.push_back(field);
    places_.push_back({});
  }
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    const OGRFieldDefn& told = *definition.GetFieldDefn(i);
    std::string room;
    Field field{Utf8(told.GetNameRef(), room), TypeOf(told), StorageOf(told.GetType())};
    field.Logical = told.GetSubType() == OFSTBoolean;
    field.TimeOfDay = told.GetType() == OFTDateTime;
    field.Width = told.GetWidth();
    field.Decimals = told.GetPrecision();
    fields_.push_back(field);
    places_.push_back({i, told.GetType()});
  }
}

std::string VectorSource::WorkspacePath() const {
  // One table a file: the folder is the workspace.
  return HoldsOneTable(kind_) ? std::filesystem::path(address_.path).parent_path().string()
                              : address_.path;
}

Text VectorSource::TableName() const {
  if (!layerName_.empty()) return FromUtf8(layerName_);
  return FromUtf8(std::filesystem::path(address_.path).stem().string());
}

VectorSource::Handle VectorSource::Open() {
  CheckValid();
  HandlePool::Handle opened = HandlePool::Instance().Take(this);
  std::string problem;
  if (opened.second == nullptr) opened = OpenDataset(problem);
  if (opened.second == nullptr) {
    host::Fail(failure::kFileNotFound,
               "The data can't be reached any more: " + address_.path + ": " + problem);
  }
  return {shared_from_this(), std::move(opened)};
}

VectorSource::Handle::~Handle() {
  if (!opened_.first) return;
  OGRLayer& layer = *opened_.second;
  layer.SetAttributeFilter(nullptr);
  layer.SetSpatialFilter(nullptr);
  layer.SetIgnoredFields(nullptr);
  layer.ResetReading();
  HandlePool::Instance().Give(source_.get(), std::move(opened_));
}

std::string VectorSource::DbfPath() const {
  if (!isShapefile_ || !IsShapefileName(address_.path)) return {};
  return host::TrueCase(CPLResetExtension(address_.path.c_str(), "dbf"));
}

const OGRSpatialReference* VectorSource::ReferenceSystem() {
  // Telling a system by its definition takes longer than many a job that asks for none.
  if (!crsRead_ && Valid() && hasGeometry_) {
    crsRead_ = true;
    const Handle layer = Open();
    if (const OGRSpatialReference* crs = layer->GetSpatialRef()) {
      crs_.reset(crs->Clone());
      crs_->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    }
  }
  return crs_.get();
}

bool VectorSource::Extent(OGREnvelope& extent) {
  return hasGeometry_ && Valid() && Open()->GetExtent(&extent, TRUE) == OGRERR_NONE;
}

const char* VectorSource::Utf8(const char* bytes, std::string& room) const {
  if (recode_.empty()) return bytes;
  char* utf8 = CPLRecode(bytes, recode_.c_str(), CPL_ENC_UTF8);
  room = utf8;
  CPLFree(utf8);
  return room.c_str();
}

}  // namespace brelmon::data
