// SPDX-License-Identifier: GPL-2.0-or-later
// Rows that are there twice, as columns and as GDAL's features, so that two readings of a clause
// can be held against each other.
#pragma once

#include <ogrsf_frmts.h>

#include <algorithm>
#include <bit>
#include <functional>

#include "hosts/columns/columnbuffer.h"
#include "hosts/columns/where.h"

namespace brelmon::test {

/// 0 and up, below `sides`: a random number, or a fuzzer's bytes.
using Roll = std::function<unsigned(unsigned sides)>;

template <class List>
const auto& Any(const Roll& roll, const List& list) {
  return list[roll(static_cast<unsigned>(std::size(list)))];
}

inline constexpr const char* kTexts[] = {
    "",    "a",         "A",  "Karst", "karST", "O'Brien", "50%",         "a_b",
    "axb", "C\u00F4te", "  ", "-9999", "zz",    "k",       "Stra\u00DFe", "\u00C9t\u00E9"};
inline constexpr std::int64_t kWholes[] = {
    0, 1, -1, 2, 7, -9999, 100, 5000000000, 1234567890123456789};
inline constexpr double kReals[] = {0, -0.0, 1, 0.5, -9999, 1e300, 20.25, 1e-7, 5000000000.0};

/// One field of each kind.
inline const std::vector<columns::Field>& FieldsOfBoth() {
  using columns::Storage;
  static const auto fields = [] {
    std::vector<columns::Field> made{
        {"TXT", FieldType::String, Storage::Text},  {"I", FieldType::Integer, Storage::Whole},
        {"BIG", FieldType::Double, Storage::Whole}, {"R", FieldType::Double, Storage::Real},
        {"DAY", FieldType::Date, Storage::Moment},  {"AT", FieldType::Date, Storage::Moment}};
    made[4].TimeOfDay = false;
    return made;
  }();
  return fields;
}

class BothRows {
 public:
  BothRows(const Roll& roll, std::size_t rows) : roll_(roll) {
    constexpr OGRFieldType kTypes[] = {OFTString, OFTInteger, OFTInteger64,
                                       OFTReal,   OFTDate,    OFTDateTime};
    definition_ = new OGRFeatureDefn("rows");
    definition_->Reference();
    definition_->SetGeomType(wkbNone);
    for (std::size_t i = 0; i < FieldsOfBoth().size(); ++i) {
      const OGRFieldDefn field(FieldsOfBoth()[i].Name.c_str(), kTypes[i]);
      definition_->AddFieldDefn(&field);
      buffers_.emplace_back().Start(FieldsOfBoth()[i].Stored, rows);
    }
    for (std::size_t row = 0; row < rows; ++row) AddRow(row);
    batch_.Rows = rows;
  }
  ~BothRows() {
    features_.clear();
    definition_->Release();
  }
  BothRows(const BothRows&) = delete;
  BothRows& operator=(const BothRows&) = delete;

  std::string ByGdal(const std::string& clause) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRFeatureQuery query;
    if (query.Compile(definition_, clause.c_str()) != OGRERR_NONE) return "refused";
    std::string rows;
    for (const auto& feature : features_) {
      if (query.Evaluate(feature.get())) rows += std::to_string(feature->GetFID()) + " ";
    }
    return rows;
  }
  /// By the evaluator of columns; "unknown" where it leaves the clause to others.
  std::string ByColumns(const std::string& clause) const {
    const auto compiled = columns::CompileWhere(FromUtf8(clause), FieldsOfBoth());
    if (!compiled.where) return compiled.refusal.empty() ? "unknown" : "refused";
    return KeptBy(*compiled.where);
  }
  /// Only what the clause says that it tests is there.
  std::string KeptBy(const columns::Where& where) const {
    columns::Batch batch = batch_;
    batch.Columns.resize(buffers_.size());
    for (const std::size_t field : where.Fields()) batch.Columns[field] = buffers_[field].View();
    where.Keep(batch);
    std::string rows;
    for (const std::uint32_t row : batch.Live) rows += std::to_string(batch.Ids[row]) + " ";
    return rows;
  }

 private:
  std::uint64_t Raw() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = bits << 8 | roll_(256);
    return bits;
  }

  void AddRow(std::size_t row) {
    OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(definition_));
    feature->SetFID(static_cast<GIntBig>(row) * 3);
    batch_.Ids.push_back(feature->GetFID());
    batch_.Live.push_back(static_cast<std::uint32_t>(row));
    for (std::size_t i = 0; i < FieldsOfBoth().size(); ++i) {
      if (roll_(5) == 0) {
        buffers_[i].SetNull(row);
        feature->SetFieldNull(static_cast<int>(i));
      } else {
        Set(*feature, static_cast<int>(i), buffers_[i], row);
      }
    }
    features_.push_back(std::move(feature));
  }
  void Set(OGRFeature& feature, int field, columns::ColumnBuffer& column, std::size_t row) {
    const bool raw = roll_(4) == 3;
    switch (FieldsOfBoth()[static_cast<std::size_t>(field)].Stored) {
      case columns::Storage::Text: {
        std::string text = Any(roll_, kTexts);
        if (raw) text += static_cast<char>(1 + roll_(127));
        column.Texts[row] = texts_.Put(text);
        return feature.SetField(field, text.c_str());
      }
      case columns::Storage::Whole:
        if (field == 1)
          column.Wholes[row] = raw ? static_cast<std::int32_t>(Raw()) : kWholes[roll_(7)];
        if (field != 1)
          column.Wholes[row] = raw ? static_cast<std::int64_t>(Raw()) : Any(roll_, kWholes);
        return feature.SetField(field, static_cast<GIntBig>(column.Wholes[row]));
      case columns::Storage::Real:
        column.Reals[row] = raw ? std::bit_cast<double>(Raw()) : Any(roll_, kReals);
        return feature.SetField(field, column.Reals[row]);
      default:
        return SetMoment(feature, field, column.Moments[row], raw);
    }
  }
  void SetMoment(OGRFeature& feature, int field, columns::Moment& moment, bool raw) {
    const auto byte = [&](unsigned from, unsigned count) {
      return static_cast<std::uint8_t>(from + roll_(count));
    };
    moment = {2020, 2, byte(27, 3)};
    if (raw) moment = {static_cast<std::int16_t>(1 + roll_(9999)), byte(1, 12), byte(1, 31)};
    if (field == 5) {
      moment.Hour = byte(0, raw ? 24 : 2);
      moment.Minute = byte(0, raw ? 60 : 2);
      if (raw) moment.Second = static_cast<float>(roll_(120)) / 2;
    }
    feature.SetField(field, moment.Year, moment.Month, moment.Day, moment.Hour, moment.Minute,
                     moment.Second, 0);
  }

  Roll roll_;
  OGRFeatureDefn* definition_ = nullptr;
  std::vector<OGRFeatureUniquePtr> features_;
  std::vector<columns::ColumnBuffer> buffers_;
  columns::TextRoom texts_;
  columns::Batch batch_;
};

}  // namespace brelmon::test
