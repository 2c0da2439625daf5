// SPDX-License-Identifier: GPL-2.0-or-later
// Facts of OGR sources, from a handle of our own that is closed at once.
#include "hosts/qgis/data/ogrfacts.h"

#include <cpl_string.h>
#include <gdal.h>
#include <ogrsf_frmts.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>

#include <QHash>

#include "hosts/common/dissolvecolumns.h"
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

/// Hands `read` a handle on the source that nobody else has, if there is such a source.
template <class Read>
void WithOgrLayer(const QString& source, const char* const* options, const Read& read) {
  const QVariantMap parts =
      QgsProviderRegistry::instance()->decodeUri(QStringLiteral("ogr"), source);
  const QByteArray path = parts.value(QStringLiteral("path")).toString().toUtf8();
  GDALDatasetH dataset =
      GDALOpenEx(path.constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, options, nullptr);
  if (!dataset) return;
  if (OGRLayerH layer = LayerIn(dataset, parts)) read(layer);
  GDALClose(dataset);
}

OgrFacts Ask(const QString& source) {
  OgrFacts facts;
  WithOgrLayer(source, nullptr, [&](OGRLayerH layer) {
    facts.idField = FromC(OGR_L_GetFIDColumn(layer));
    facts.shapeField = FromC(OGR_L_GetGeometryColumn(layer));
    AddNarrowTypes(layer, facts);
  });
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

std::string ReadOgrColumns(const QgsVectorLayer& layer, std::vector<host::DissolveField>& fields) {
  std::string encoding = CPL_ENC_UTF8;
  if (layer.providerType() != QLatin1String("ogr")) return encoding;
  // The user may have told QGIS what the file itself doesn't.
  CPLStringList options;
  const QByteArray told = layer.dataProvider()->encoding().toUtf8();
  if (layer.storageType() == QLatin1String("ESRI Shapefile") && !told.isEmpty() &&
      told.compare("System", Qt::CaseInsensitive) != 0) {
    options.SetNameValue("ENCODING", told.constData());
  }
  WithOgrLayer(layer.source(), options.List(), [&](OGRLayerH source) {
    encoding = host::ReadColumns(*OGRLayer::FromHandle(source), fields);
  });
  return encoding;
}

}  // namespace brelmon::qgis
