// SPDX-License-Identifier: GPL-2.0-or-later
// Features one after the other, and of each only the fields that are asked for.
#include "hosts/data/ogrreader.h"

#include <cpl_string.h>

#include "hosts/columns/querytokens.h"
#include "hosts/common/hostfailure.h"
#include "hosts/data/rowfiller.h"

namespace brelmon::data {
namespace {

using columns::Batch, columns::ColumnBuffer, columns::Storage;

void IgnoreTheRest(const VectorSource& source, const std::vector<std::size_t>& fields,
                   OGRLayer& layer) {
  if (!layer.TestCapability(OLCIgnoreFields)) return;
  std::vector<bool> wanted(source.Fields().size(), false);
  for (const std::size_t field : fields) wanted[field] = true;
  CPLStringList ignored;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const int index = source.PlaceOf(i).index;
    if (index < 0 || wanted[i]) continue;
    ignored.AddString(layer.GetLayerDefn()->GetFieldDefn(index)->GetNameRef());
  }
  ignored.AddString("OGR_GEOMETRY");
  ignored.AddString("OGR_STYLE");
  layer.SetIgnoredFields(const_cast<const char**>(ignored.List()));
}

class FeatureReader : public RowFiller {
 public:
  FeatureReader(std::shared_ptr<VectorSource> source, std::vector<std::size_t> fields)
      : RowFiller(std::move(source), std::move(fields)), layer_(source_->Open()) {}

  std::shared_ptr<Batch> Next() override {
    const ErrorWatch watch;
    auto batch = RowFiller::Next();
    CheckReading(*source_, watch);
    return batch;
  }

 protected:
  virtual OGRFeatureUniquePtr NextFeature() = 0;
  VectorSource::Handle layer_;

 private:
  std::optional<std::int64_t> NextRow() override {
    feature_ = NextFeature();
    if (!feature_) return {};
    return feature_->GetFID();
  }
  void Take(std::size_t field, ColumnBuffer& column, std::size_t row,
            columns::TextRoom& texts) override {
    TakeValue(*source_, *feature_, field, column, row, texts);
  }
  OGRFeatureUniquePtr feature_;
};

class RowsInOrder : public FeatureReader {
 public:
  RowsInOrder(std::shared_ptr<VectorSource> source, std::vector<std::size_t> fields,
              const Text& clause)
      : FeatureReader(std::move(source), std::move(fields)) {
    const ErrorWatch watch;
    if (!columns::IsBlank(clause) &&
        layer_->SetAttributeFilter(ToUtf8(clause).c_str()) != OGRERR_NONE) {
      host::Fail(failure::kRefused, "The query was refused: " + watch.Failure() + ".");
    }
    IgnoreTheRest(*source_, fields_, *layer_);
    layer_->ResetReading();
  }

 protected:
  OGRFeatureUniquePtr NextFeature() override {
    return OGRFeatureUniquePtr(layer_->GetNextFeature());
  }
};

class RowsById : public FeatureReader {
 public:
  RowsById(std::shared_ptr<VectorSource> source, std::vector<std::size_t> fields,
           std::shared_ptr<const columns::RowIds> ids)
      : FeatureReader(std::move(source), std::move(fields)), ids_(std::move(ids)) {
    IgnoreTheRest(*source_, fields_, *layer_);
  }

 protected:
  OGRFeatureUniquePtr NextFeature() override {
    while (next_ < ids_->size()) {
      OGRFeatureUniquePtr feature(layer_->GetFeature((*ids_)[next_++]));
      if (feature) return feature;
    }
    return nullptr;
  }

 private:
  std::shared_ptr<const columns::RowIds> ids_;
  std::size_t next_ = 0;
};

bool TakeMoment(const OGRFeature& feature, int index, columns::Moment& moment) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
  if (!feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &moment.Second,
                                  &zone)) {
    return false;
  }
  moment.Year = static_cast<std::int16_t>(year);
  moment.Month = static_cast<std::uint8_t>(month);
  moment.Day = static_cast<std::uint8_t>(day);
  moment.Hour = static_cast<std::uint8_t>(hour);
  moment.Minute = static_cast<std::uint8_t>(minute);
  moment.Zone = static_cast<std::uint8_t>(zone);
  return true;
}

}  // namespace

void TakeValue(const VectorSource& source, const OGRFeature& feature, std::size_t field,
               ColumnBuffer& column, std::size_t row, columns::TextRoom& texts) {
  const OgrPlace& place = source.PlaceOf(field);
  if (place.index < 0) {
    column.Wholes[row] = feature.GetFID();
    return;
  }
  column.Nulls[row] = 0;
  if (!feature.IsFieldSetAndNotNull(place.index)) return column.SetNull(row);
  switch (source.Fields()[field].Stored) {
    case Storage::Whole:
      column.Wholes[row] = feature.GetFieldAsInteger64(place.index);
      return;
    case Storage::Real:
      column.Reals[row] = feature.GetFieldAsDouble(place.index);
      return;
    case Storage::Moment:
      if (!TakeMoment(feature, place.index, column.Moments[row])) column.SetNull(row);
      return;
    default:
      break;
  }
  if (place.type == OFTBinary) return;
  std::string room;
  column.Texts[row] =
      texts.Put(source.Utf8(const_cast<OGRFeature&>(feature).GetFieldAsString(place.index), room));
}

void CheckReading(const VectorSource& source, const ErrorWatch& watch) {
  if (watch.Failure().empty()) return;
  host::Fail(failure::kDeviceIo, source.Address().path + " can't be read on: " + watch.Failure());
}

std::unique_ptr<columns::IBatchReader> ReadFeatures(const std::shared_ptr<VectorSource>& source,
                                                    const std::vector<std::size_t>& fields,
                                                    const Text& clause) {
  return std::make_unique<RowsInOrder>(source, fields, clause);
}

std::unique_ptr<columns::IBatchReader> FetchFeatures(const std::shared_ptr<VectorSource>& source,
                                                     const std::vector<std::size_t>& fields,
                                                     std::shared_ptr<const columns::RowIds> ids) {
  return std::make_unique<RowsById>(source, fields, std::move(ids));
}

}  // namespace brelmon::data
