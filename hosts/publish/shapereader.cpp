// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of both readers come in the same order; a row that doesn't is fetched by its identifier.
#include "hosts/publish/shapereader.h"

#include <cpl_string.h>

#include <cmath>
#include <stdexcept>

#include "hosts/data/errorwatch.h"
#include "hosts/data/ogrreader.h"

namespace brelmon::publish {
namespace {

const char* KindOf(OGRwkbGeometryType type) {
  switch (wkbFlatten(type)) {
    case wkbPoint:
    case wkbMultiPoint:
      return "point";
    case wkbLineString:
    case wkbMultiLineString:
    case wkbCircularString:
    case wkbCompoundCurve:
    case wkbMultiCurve:
      return "line";
    case wkbPolygon:
    case wkbMultiPolygon:
    case wkbCurvePolygon:
    case wkbMultiSurface:
    case wkbPolyhedralSurface:
    case wkbTIN:
    case wkbTriangle:
      return "polygon";
    default:
      return "mixed";
  }
}

void IgnoreFields(OGRLayer& layer) {
  if (!layer.TestCapability(OLCIgnoreFields)) return;
  CPLStringList ignored;
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    ignored.AddString(definition.GetFieldDefn(i)->GetNameRef());
  }
  ignored.AddString("OGR_STYLE");
  layer.SetIgnoredFields(const_cast<const char**>(ignored.List()));
}

/// Straight, flat, and nothing but points, lines and polygons.
std::unique_ptr<OGRGeometry> Simple(std::unique_ptr<OGRGeometry> shape) {
  if (shape->hasCurveGeometry()) shape.reset(shape->getLinearGeometry());
  const OGRwkbGeometryType type = wkbFlatten(shape->getGeometryType());
  if (type == wkbTIN || type == wkbPolyhedralSurface || type == wkbTriangle) {
    shape.reset(OGRGeometryFactory::forceToMultiPolygon(shape.release()));
  }
  shape->flattenTo2D();
  shape->setMeasured(FALSE);
  return shape;
}

bool IsFinite(const OGREnvelope& box) {
  return std::isfinite(box.MinX) && std::isfinite(box.MinY) && std::isfinite(box.MaxX) &&
         std::isfinite(box.MaxY);
}

}  // namespace

ShapeReader::ShapeReader(const std::shared_ptr<data::VectorSource>& source,
                         const OGRSpatialReference* from, const OGRSpatialReference* to)
    : source_(source) {
  if (!source->HasGeometry()) return;
  rows_.emplace(source->Open());
  OGRLayer& layer = **rows_;
  declared_ = KindOf(layer.GetGeomType());
  IgnoreFields(layer);
  layer.ResetReading();
  if (from == nullptr || to == nullptr || from->IsSame(to) != 0) return;
  transformation_.reset(OGRCreateCoordinateTransformation(from, to));
  if (!transformation_) {
    throw std::runtime_error(source->Address().path +
                             ": its shapes can't be brought into the document's reference system");
  }
}

OGRGeometry* ShapeReader::ShapeOf(std::int64_t row) {
  shape_.reset();
  if (!rows_) return nullptr;
  const data::ErrorWatch watch;
  OGRFeatureUniquePtr feature((*rows_)->GetNextFeature());
  if (!feature || feature->GetFID() != row) feature.reset((*rows_)->GetFeature(row));
  if (!feature) data::CheckReading(*source_, watch);
  if (!feature || feature->GetGeometryRef() == nullptr || feature->GetGeometryRef()->IsEmpty()) {
    return nullptr;
  }
  shape_.reset(feature->StealGeometry());
  Convert();
  return shape_.get();
}

void ShapeReader::Convert() {
  shape_ = Simple(std::move(shape_));
  const bool failed = transformation_ && shape_->transform(transformation_.get()) != OGRERR_NONE;
  OGREnvelope box;
  shape_->getEnvelope(&box);
  if (failed || !IsFinite(box)) {
    ++placeless_;
    shape_.reset();
    return;
  }
  shape_->assignSpatialReference(nullptr);
  extent_.Merge(box);
  const std::string kind = KindOf(shape_->getGeometryType());
  kind_ = kind_.empty() || kind_ == kind ? kind : "mixed";
}

std::string ShapeReader::Kind() const { return kind_.empty() ? declared_ : kind_; }

}  // namespace brelmon::publish
