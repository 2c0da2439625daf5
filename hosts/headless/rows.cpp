// SPDX-License-Identifier: GPL-2.0-or-later
// Where-clauses at the source.
#include "hosts/headless/rows.h"

#include <cpl_string.h>

#include <algorithm>
#include <numeric>

#include "hosts/common/hostfailure.h"
#include "hosts/headless/dbfrows.h"

namespace brelmon::headless {
namespace {

[[noreturn]] void Refuse(const std::string& reason) {
  host::Fail(failure::kRefused, "The query was refused: " + reason + ".");
}

/// Names that a source knows without listing them as fields.
std::vector<Text> KnownNames(const VectorSource& source) {
  std::vector<Text> names;
  for (const SourceField& field : source.Fields()) names.push_back(field.name);
  if (source.HasOwnSql()) {
    names.insert(names.end(), {u"rowid", u"oid", u"_rowid_", source.GeometryField()});
  } else {
    names.insert(names.end(),
                 {u"FID", u"OGR_GEOMETRY", u"OGR_STYLE", u"OGR_GEOM_WKT", u"OGR_GEOM_AREA"});
  }
  return names;
}

/// Fields of the request and of its clause; a field that a clause tests must be read.
bool IsNeeded(const RowRequest& request, const columns::ClauseNames& names, const SourceField& field,
              std::int32_t index) {
  return request.allFields ||
         std::find(request.fields.begin(), request.fields.end(), index) != request.fields.end() ||
         std::any_of(names.fields.begin(), names.fields.end(),
                     [&](const Text& name) { return EqualNoCase(name, field.name); });
}

void IgnoreTheRest(const VectorSource& source, const RowRequest& request, OGRLayer& layer) {
  if (!layer.TestCapability(OLCIgnoreFields)) return;
  const columns::ClauseNames names = columns::NamesIn(request.clause);
  CPLStringList ignored;
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (std::size_t i = 0; i < source.Fields().size(); ++i) {
    const SourceField& field = source.Fields()[i];
    if (field.ogrIndex >= 0 && !IsNeeded(request, names, field, static_cast<std::int32_t>(i))) {
      ignored.AddString(definition.GetFieldDefn(field.ogrIndex)->GetNameRef());
    }
  }
  if (!request.geometry && !TestsGeometry(names)) {
    ignored.AddString("OGR_GEOMETRY");
    ignored.AddString("OGR_STYLE");
  }
  char** list = ignored.List();
  if (list != nullptr) layer.SetIgnoredFields(const_cast<const char**>(list));
}

void SetClause(const VectorSource& source, OGRLayer& layer, const Text& clause) {
  if (columns::IsBlank(clause)) return;
  CPLErrorReset();
  if (layer.SetAttributeFilter(source.TextForSource(clause).c_str()) != OGRERR_NONE) {
    Refuse(CPLGetLastErrorMsg());
  }
}

/// A source with SQL of its own looks at a clause only when it is asked for rows.
void TryReading(OGRLayer& layer) {
  CPLErrorReset();
  layer.ResetReading();
  const OGRFeatureUniquePtr first(layer.GetNextFeature());
  if (CPLGetLastErrorType() >= CE_Failure) Refuse(CPLGetLastErrorMsg());
}

}  // namespace

bool TestsGeometry(const columns::ClauseNames& names) {
  return std::any_of(names.fields.begin(), names.fields.end(), [](const Text& name) {
    return FindNoCase(name, u"OGR_GEOM") == 0 || EqualNoCase(name, u"OGR_STYLE");
  });
}

void TryClause(VectorSource& source, TextView clause) {
  if (columns::IsBlank(clause)) return;
  if (clause.find(u'\0') != TextView::npos) Refuse("it holds a character that no query can hold");
  const columns::ClauseNames names = columns::NamesIn(clause);
  if (!names.fault.empty()) Refuse(names.fault);
  if (const auto unknown = columns::UnknownField(names, KnownNames(source))) {
    Refuse("there is no field \"" + ToUtf8(*unknown) + "\"");
  }
  const VectorSource::Handle rows = source.Open();
  SetClause(source, *rows, Text(clause));
  if (source.HasOwnSql()) TryReading(*rows);
}

Text BothClauses(TextView one, TextView other) {
  if (columns::IsBlank(one)) return columns::IsBlank(other) ? Text() : Text(other);
  if (columns::IsBlank(other)) return Text(one);
  return u"(" + Text(one) + u") AND (" + Text(other) + u")";
}

VectorSource::Handle OpenRows(VectorSource& source, const RowRequest& request) {
  VectorSource::Handle rows = source.Open();
  SetClause(source, *rows, request.clause);
  IgnoreTheRest(source, request, *rows);
  CPLErrorReset();
  rows->ResetReading();
  return rows;
}

bool ReadingBroke(const VectorSource& source, const Text& clause) {
  if (CPLGetLastErrorType() < CE_Failure) return false;
  return columns::IsBlank(clause) || source.HasOwnSql() || CPLGetLastErrorNo() == CPLE_FileIO;
}

GIntBig CountRows(VectorSource& source, const Text& clause) {
  if (columns::IsBlank(clause)) return source.TotalRows();
  if (auto plain = DbfRows::Open(source.shared_from_this(), clause)) {
    GIntBig count = 0;
    while (plain->Next()) ++count;
    return count;
  }
  const VectorSource::Handle rows = OpenRows(source, {clause, {}, false, false});
  const GIntBig count = rows->GetFeatureCount(TRUE);
  if (count < 0 || ReadingBroke(source, clause)) Refuse(CPLGetLastErrorMsg());
  return count;
}

RowIds IdsOfRows(VectorSource& source, const Text& clause, const OGRGeometry* shape, bool justOne) {
  RowIds ids;
  if (columns::IsBlank(clause) && shape == nullptr && !justOne && source.HasDenseIds()) {
    ids.resize(static_cast<std::size_t>(source.TotalRows()));
    std::iota(ids.begin(), ids.end(), GIntBig{0});
    return ids;
  }
  auto plain = shape ? nullptr : DbfRows::Open(source.shared_from_this(), clause);
  if (plain) {
    while ((ids.empty() || !justOne) && plain->Next()) ids.push_back(plain->Id());
    return ids;
  }
  const VectorSource::Handle rows = OpenRows(source, {clause, {}, false, shape != nullptr});
  OGRPreparedGeometryUniquePtr prepared;
  if (shape != nullptr) {
    OGREnvelope box;
    shape->getEnvelope(&box);
    rows->SetSpatialFilterRect(box.MinX, box.MinY, box.MaxX, box.MaxY);
    prepared.reset(
        OGRCreatePreparedGeometry(OGRGeometry::ToHandle(const_cast<OGRGeometry*>(shape))));
  }
  while (const OGRFeatureUniquePtr row{rows->GetNextFeature()}) {
    if (shape != nullptr) {
      const OGRGeometry* own = row->GetGeometryRef();
      if (own == nullptr || own->IsEmpty()) continue;
      auto* handle = OGRGeometry::ToHandle(const_cast<OGRGeometry*>(own));
      const bool hit = prepared ? OGRPreparedGeometryIntersects(prepared.get(), handle) != 0
                                : own->Intersects(shape) != 0;
      if (!hit) continue;
    }
    ids.push_back(row->GetFID());
    if (justOne) break;
  }
  if (ReadingBroke(source, clause)) host::Fail(failure::kDeviceIo, CPLGetLastErrorMsg());
  std::sort(ids.begin(), ids.end());
  return ids;
}

}  // namespace brelmon::headless
