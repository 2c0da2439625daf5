// SPDX-License-Identifier: GPL-2.0-or-later
// Values come through the host's own reader, so that a page computes with the same; GDAL writes.
#include "hosts/publish/tablefile.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "hosts/columns/values.h"
#include "hosts/publish/shapereader.h"
#include "platform/failure.h"

namespace brelmon::publish {
namespace {

using columns::Field, columns::Storage;

[[noreturn]] void Refuse(const std::string& file, const std::string& what) {
  throw std::runtime_error(file + ": " + what + ": " + CPLGetLastErrorMsg());
}

OGRFieldType TypeOf(const Field& field) {
  switch (field.Stored) {
    case Storage::Whole:
      // Whole numbers that 32 bits may not hold are doubles to the tools.
      return field.Type == FieldType::Double ? OFTInteger64 : OFTInteger;
    case Storage::Real:
      return OFTReal;
    case Storage::Moment:
      return field.TimeOfDay ? OFTDateTime : OFTDate;
    default:
      return field.Type == FieldType::Blob ? OFTBinary : OFTString;
  }
}

/// A page drops fractions of a second; the tools round them.
columns::Moment Rounded(const columns::Moment& moment) {
  if (moment.Second == std::floor(moment.Second)) return moment;
  try {
    const CivilTime civil = ToCivil(columns::DateOf(moment));
    columns::Moment rounded = moment;
    rounded.Year = static_cast<std::int16_t>(civil.year);
    rounded.Month = static_cast<std::uint8_t>(civil.month);
    rounded.Day = static_cast<std::uint8_t>(civil.day);
    rounded.Hour = static_cast<std::uint8_t>(civil.hour);
    rounded.Minute = static_cast<std::uint8_t>(civil.minute);
    rounded.Second = static_cast<float>(civil.second);
    return rounded;
  } catch (const Failure&) {
    return moment;  // a year that the tools have no date for
  }
}

class TableWriter {
 public:
  TableWriter(data::VectorSource& source, const OGRSpatialReference* crs, const std::string& file)
      : file_(file), fields_(source.Fields()) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("FlatGeobuf");
    if (driver == nullptr) throw std::runtime_error("GDAL writes no FlatGeobuf here");
    CPLErrorReset();
    dataset_.reset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset_) Refuse(file, "it can't be written");
    const char* options[] = {"SPATIAL_INDEX=NO", nullptr};
    auto* own = const_cast<OGRSpatialReference*>(crs);
    layer_ = dataset_->CreateLayer(ToUtf8(source.TableName()).c_str(), own, wkbUnknown,
                                   const_cast<char**>(options));
    if (layer_ == nullptr) Refuse(file, "it can't be written");
    AddColumns();
    row_.reset(OGRFeature::CreateFeature(layer_->GetLayerDefn()));
  }

  void Write(const columns::Batch& batch, std::uint32_t place, OGRGeometry* shape) {
    row_->Reset();
    row_->SetField(0, static_cast<GIntBig>(batch.Ids[place]));
    int column = 1;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (fields_[i].IsId) continue;
      Set(column++, fields_[i], batch.Columns[i], place);
    }
    // A row without a shape would be left out.
    constexpr double kNowhere = std::numeric_limits<double>::infinity();
    OGRPoint nowhere(kNowhere, kNowhere);
    row_->SetGeometry(shape != nullptr ? shape : &nowhere);
    if (layer_->CreateFeature(row_.get()) != OGRERR_NONE) Refuse(file_, "a row can't be written");
  }

  void Close() {
    CPLErrorReset();
    row_.reset();
    dataset_.reset();
    if (CPLGetLastErrorType() >= CE_Failure) Refuse(file_, "it can't be written");
  }

 private:
  void AddColumns() {
    OGRFieldDefn id(IdName().c_str(), OFTInteger64);
    AddColumn(id);
    for (const Field& field : fields_) {
      if (field.IsId) continue;
      OGRFieldDefn column(field.Name.c_str(), TypeOf(field));
      if (field.Stored == Storage::Whole && field.Logical) column.SetSubType(OFSTBoolean);
      AddColumn(column);
    }
  }
  void AddColumn(OGRFieldDefn& column) {
    if (layer_->CreateField(&column) != OGRERR_NONE) Refuse(file_, "a column can't be written");
  }

  /// A name that no field has.
  std::string IdName() const {
    std::string name = "row";
    while (columns::FindField(fields_, FromUtf8(name)) >= 0) name += '_';
    return name;
  }

  void Set(int index, const Field& field, const columns::Column& column, std::size_t place) {
    if (column.IsNull(place)) return row_->SetFieldNull(index);
    switch (field.Stored) {
      case Storage::Whole:
        return row_->SetField(index, static_cast<GIntBig>(column.Wholes[place]));
      case Storage::Real:
        return row_->SetField(index, column.Reals[place]);
      case Storage::Moment: {
        const columns::Moment moment = Rounded(column.Moments[place]);
        return row_->SetField(index, moment.Year, moment.Month, moment.Day, moment.Hour,
                              moment.Minute, moment.Second, moment.Zone);
      }
      default:
        // What bytes hold is no tool's business.
        if (field.Type == FieldType::Blob) return row_->SetField(index, 0, "");
        return row_->SetField(index, std::string(column.Texts[place]).c_str());
    }
  }

  std::string file_;
  std::vector<Field> fields_;
  GDALDatasetUniquePtr dataset_;
  OGRLayer* layer_ = nullptr;
  OGRFeatureUniquePtr row_;
};

}  // namespace

TableFacts WriteTable(const std::shared_ptr<data::VectorSource>& source,
                      const OGRSpatialReference* from, const OGRSpatialReference* to,
                      const std::string& file, const std::function<void()>& now) {
  TableFacts facts;
  columns::RowRequest all;
  for (std::size_t i = 0; i < source->Fields().size(); ++i) all.Fields.push_back(i);
  ShapeReader shapes(source, from, to);
  TableWriter writer(*source, to, file);
  const auto rows = source->Read(all);
  while (const auto batch = rows->Next()) {
    now();
    for (const std::uint32_t place : batch->Live) {
      writer.Write(*batch, place, shapes.ShapeOf(batch->Ids[place]));
      ++facts.rows;
    }
  }
  writer.Close();
  facts.geometry = shapes.Kind();
  facts.extent = shapes.Extent();
  facts.placeless = shapes.Placeless();
  return facts;
}

}  // namespace brelmon::publish
