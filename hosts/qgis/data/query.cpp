// SPDX-License-Identifier: GPL-2.0-or-later
// Trying a query on a second handle of a layer.
#include "hosts/qgis/data/query.h"

#include <qgsgeometryengine.h>
#include <qgsproject.h>
#include <qgsvectordataprovider.h>

#include "hosts/columns/querytokens.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/data/geometry.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

[[noreturn]] void Refuse(const Text& reason) { Raise(failure::kRefused, reason, 0); }

void CheckNames(const QgsVectorLayer& layer, const Text& definition) {
  const columns::ClauseNames names = columns::NamesIn(definition);
  if (!names.fault.empty()) Refuse(FromUtf8(names.fault));
  std::vector<Text> fields;
  for (const auto& field : layer.fields()) fields.push_back(FromQt(field.name()));
  // OGR offers the record number under this name whatever the source.
  if (layer.providerType() == QLatin1String("ogr")) fields.push_back(u"FID");
  if (const auto unknown = columns::UnknownField(names, fields)) {
    Refuse(u"There is no field '" + *unknown + u"'.");
  }
}

QgsGeometry InLayer(const ISpatialFilter& filter, const QgsVectorLayer& layer) {
  const PlacedGeometry placed = GeometryOf(filter.Geometry);
  QgsGeometry shape = placed.geometry;
  const QgsCoordinateTransform transform(placed.crs, layer.crs(), QgsProject::instance());
  if (shape.transform(transform) != Qgis::GeometryOperationResult::Success) {
    Raise(failure::kInvalidCall, u"The graphic can't be brought into the layer's coordinates.", 0);
  }
  return shape;
}

void KeepTouching(QgsVectorLayer& rows, const QgsGeometry& shape, bool justOne,
                  QgsFeatureIds& ids) {
  QgsFeatureRequest request;
  request.setFilterRect(shape.boundingBox()).setNoAttributes();
  std::unique_ptr<QgsGeometryEngine> engine(QgsGeometry::createGeometryEngine(shape.constGet()));
  engine->prepareGeometry();
  QgsFeatureIterator at = rows.getFeatures(request);
  for (QgsFeature feature; at.nextFeature(feature);) {
    if (!feature.hasGeometry() || !engine->intersects(feature.geometry().constGet())) continue;
    ids.insert(feature.id());
    if (justOne) return;
  }
}

}  // namespace

std::unique_ptr<QgsVectorLayer> WithDefinition(const QgsVectorLayer& layer,
                                               const Text& definition) {
  if (!layer.isValid()) Refuse(u"The data of the layer can't be reached.");
  const bool blank = columns::IsBlank(definition);
  if (!blank) CheckNames(layer, definition);
  std::unique_ptr<QgsVectorLayer> trial(layer.clone());
  const bool taken = trial->setSubsetString(blank ? QString() : ToQt(definition));
  // A GeoPackage takes broken text and only then has no count.
  if (!taken || !trial->isValid() || trial->dataProvider()->featureCount() == -1) {
    Refuse(u"The data source can't parse the query.");
  }
  return trial;
}

std::unique_ptr<QgsVectorLayer> WithClause(const QgsVectorLayer& layer, const Text& clause) {
  const Text own = FromQt(layer.subsetString());
  if (own.empty()) return WithDefinition(layer, clause);
  CheckNames(layer, clause);
  return WithDefinition(layer, u"(" + own + u") AND (" + clause + u")");
}

std::int32_t CountRows(const QgsVectorLayer& layer) {
  const long long known = layer.featureCount();
  if (known >= 0) return static_cast<std::int32_t>(known);
  QgsFeatureRequest request;
  request.setFlags(QgsFeatureRequest::NoGeometry).setNoAttributes();
  std::int32_t count = 0;
  QgsFeatureIterator at = layer.getFeatures(request);
  for (QgsFeature feature; at.nextFeature(feature);) ++count;
  return count;
}

QgsFeatureIds MatchingIds(QgsVectorLayer& layer, const Ref<IQueryFilter>& filter, bool justOne) {
  const Text clause = ClauseOf(filter);
  std::unique_ptr<QgsVectorLayer> trial;
  if (!clause.empty()) trial = WithClause(layer, clause);
  QgsVectorLayer& rows = trial ? *trial : layer;

  QgsFeatureIds ids;
  if (const auto spatial = filter.TryAs<ISpatialFilter>()) {
    if (!EqualNoCase(spatial->GeometryField, FieldsOf(layer)->shapeField)) {
      Refuse(u"The layer has no shape field '" + spatial->GeometryField + u"'.");
    }
    KeepTouching(rows, InLayer(*spatial, layer), justOne, ids);
    return ids;
  }
  QgsFeatureRequest request;
  request.setFlags(QgsFeatureRequest::NoGeometry).setNoAttributes();
  if (justOne) request.setLimit(1);
  QgsFeatureIterator at = rows.getFeatures(request);
  for (QgsFeature feature; at.nextFeature(feature);) ids.insert(feature.id());
  return ids;
}

Text ClauseOf(const Ref<IQueryFilter>& filter) {
  return !filter || columns::IsBlank(filter->WhereClause) ? Text() : filter->WhereClause;
}

}  // namespace brelmon::qgis
