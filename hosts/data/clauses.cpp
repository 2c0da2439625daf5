// SPDX-License-Identifier: GPL-2.0-or-later
// GDAL evaluates a clause on features: each row becomes one, with the fields that are tested.
#include "hosts/data/clauses.h"

#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <algorithm>

#include "hosts/columns/rows.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::data {
namespace {

using columns::Field, columns::Storage;

[[noreturn]] void Refuse(const std::string& reason) {
  host::Fail(failure::kRefused, "The query was refused: " + reason + ".");
}

OGRFieldType TypeOf(const Field& field) {
  switch (field.Stored) {
    case Storage::Whole:
      return field.Type == FieldType::Double ? OFTInteger64 : OFTInteger;
    case Storage::Real:
      return OFTReal;
    case Storage::Moment:
      return field.TimeOfDay ? OFTDateTime : OFTDate;
    default:
      return OFTString;
  }
}

struct ReleaseDefinition {
  void operator()(OGRFeatureDefn* definition) const { definition->Release(); }
};
using DefinitionPtr = std::unique_ptr<OGRFeatureDefn, ReleaseDefinition>;

DefinitionPtr DefinitionOf(const std::vector<Field>& fields) {
  DefinitionPtr definition(new OGRFeatureDefn("rows"));
  definition->Reference();
  definition->SetGeomType(wkbNone);
  for (const Field& field : fields) {
    OGRFieldDefn told(field.Name.c_str(), TypeOf(field));
    if (field.Logical) told.SetSubType(OFSTBoolean);
    if (field.Type == FieldType::SmallInteger && !field.Logical) told.SetSubType(OFSTInt16);
    if (field.Type == FieldType::Single) told.SetSubType(OFSTFloat32);
    definition->AddFieldDefn(&told);
  }
  return definition;
}

class WhereByGdal : public columns::Where {
 public:
  WhereByGdal(TextView clause, const std::vector<Field>& fields)
      : types_(fields), definition_(DefinitionOf(fields)) {
    // GDAL takes a text that such a mark leaves open for the clause's end.
    if (clause.find(u"\\'") != TextView::npos || clause.find(u"\\\"") != TextView::npos) {
      Refuse("a backslash stands before a quotation mark");
    }
    CPLErrorReset();
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    if (query_.Compile(definition_.get(), ToUtf8(clause).c_str()) != OGRERR_NONE) {
      Refuse(CPLGetLastErrorMsg());
    }
    // What it tests is GDAL's to tell: two readers of the names might differ.
    const CPLStringList used(query_.GetUsedFields(), TRUE);
    for (int i = 0; i < used.size(); ++i) {
      const std::int32_t field = columns::FindField(fields, FromUtf8(used[i]));
      if (field >= 0) fields_.push_back(static_cast<std::size_t>(field));
    }
    std::sort(fields_.begin(), fields_.end());
    fields_.erase(std::unique(fields_.begin(), fields_.end()), fields_.end());
    feature_.reset(OGRFeature::CreateFeature(definition_.get()));
  }

  const std::vector<std::size_t>& Fields() const override { return fields_; }

  /// GDAL complains of each null among dates and goes on: its errors here are no failures.
  void Keep(columns::Batch& batch) const override {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    auto& live = batch.Live;
    live.erase(std::remove_if(live.begin(), live.end(),
                              [&](std::uint32_t row) { return !Matches(batch, row); }),
               live.end());
    CPLErrorReset();
  }

 private:
  bool Matches(const columns::Batch& batch, std::size_t row) const {
    feature_->SetFID(batch.Ids[row]);
    for (const std::size_t field : fields_) Set(static_cast<int>(field), batch.Columns[field], row);
    return query_.Evaluate(feature_.get()) != 0;
  }
  void Set(int index, const columns::Column& column, std::size_t row) const {
    if (column.IsNull(row)) return feature_->SetFieldNull(index);
    switch (types_[static_cast<std::size_t>(index)].Stored) {
      case Storage::Whole:
        return feature_->SetField(index, static_cast<GIntBig>(column.Wholes[row]));
      case Storage::Real:
        return feature_->SetField(index, column.Reals[row]);
      case Storage::Moment: {
        const columns::Moment& moment = column.Moments[row];
        return feature_->SetField(index, moment.Year, moment.Month, moment.Day, moment.Hour,
                                  moment.Minute, moment.Second, moment.Zone);
      }
      default:
        return feature_->SetField(index, std::string(column.Texts[row]).c_str());
    }
  }

  std::vector<Field> types_;
  DefinitionPtr definition_;
  mutable OGRFeatureQuery query_;
  OGRFeatureUniquePtr feature_;
  std::vector<std::size_t> fields_;
};

}  // namespace

std::unique_ptr<columns::Where> WhereOf(TextView clause, const std::vector<Field>& fields) {
  columns::Compiled compiled = columns::CompileWhere(clause, fields);
  if (!compiled.refusal.empty()) Refuse(compiled.refusal);
  if (compiled.where) return std::move(compiled.where);
  return std::make_unique<WhereByGdal>(clause, fields);
}

}  // namespace brelmon::data
