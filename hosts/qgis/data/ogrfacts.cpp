// SPDX-License-Identifier: GPL-2.0-or-later
// Facts of OGR sources, from a handle of our own that is closed at once.
#include "hosts/qgis/data/ogrfacts.h"

#include <gdal.h>
#include <ogr_api.h>
#include <qgsproviderregistry.h>

#include <QHash>

#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

Text FromC(const char* text) { return FromQt(QString::fromUtf8(text)); }

OGRLayerH LayerIn(GDALDatasetH dataset, const QVariantMap& parts) {
  const QString name = parts.value(QStringLiteral("layerName")).toString();
  if (!name.isEmpty()) return GDALDatasetGetLayerByName(dataset, name.toUtf8().constData());
  return GDALDatasetGetLayer(dataset, parts.value(QStringLiteral("layerId")).toInt());
}

void AddNarrowTypes(OGRLayerH layer, OgrFacts& facts) {
  OGRFeatureDefnH definition = OGR_L_GetLayerDefn(layer);
  for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
    OGRFieldDefnH field = OGR_FD_GetFieldDefn(definition, i);
    const OGRFieldSubType sub = OGR_Fld_GetSubType(field);
    if (sub == OFSTInt16)
      facts.narrowTypes[FromC(OGR_Fld_GetNameRef(field))] = FieldType::SmallInteger;
    if (sub == OFSTFloat32) facts.narrowTypes[FromC(OGR_Fld_GetNameRef(field))] = FieldType::Single;
  }
}

OgrFacts Ask(const QString& source) {
  OgrFacts facts;
  const QVariantMap parts =
      QgsProviderRegistry::instance()->decodeUri(QStringLiteral("ogr"), source);
  const QByteArray path = parts.value(QStringLiteral("path")).toString().toUtf8();
  GDALDatasetH dataset =
      GDALOpenEx(path.constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
  if (!dataset) return facts;
  if (OGRLayerH layer = LayerIn(dataset, parts)) {
    facts.idField = FromC(OGR_L_GetFIDColumn(layer));
    facts.shapeField = FromC(OGR_L_GetGeometryColumn(layer));
    AddNarrowTypes(layer, facts);
  }
  GDALClose(dataset);
  return facts;
}

}  // namespace

OgrFacts OgrFactsOf(const QgsVectorLayer& layer) {
  if (layer.providerType() != QLatin1String("ogr") || !layer.isValid()) return {};
  static QHash<QString, OgrFacts> known;
  const QString source = layer.source().section(QStringLiteral("|subset="), 0, 0);
  const auto hit = known.constFind(source);
  if (hit != known.constEnd()) return *hit;
  return *known.insert(source, Ask(source));
}

}  // namespace brelmon::qgis
