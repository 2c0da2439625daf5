// SPDX-License-Identifier: GPL-2.0-or-later
// What a layer's data source is called in the platform's terms.
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>

#include <QFileInfo>
#include <array>

#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

struct Kind {
  const char* storage;  // as the provider calls it
  const char16_t* workspace;
  bool folder;  // the workspace is the folder that the file stands in
};

constexpr std::array kKinds = {
    Kind{"ESRI Shapefile", u"Shapefile", true},
    Kind{"GPKG", u"GeoPackage", false},
    Kind{"PGeo", u"Personal Geodatabase", false},
    Kind{"MDB", u"Personal Geodatabase", false},
    Kind{"OpenFileGDB", u"File Geodatabase", false},
    Kind{"FileGDB", u"File Geodatabase", false},
    Kind{"CSV", u"Delimited Text", true},
    Kind{"Delimited text file", u"Delimited Text", true},
    Kind{"GeoJSON", u"GeoJSON", true},
    Kind{"SQLite", u"SQLite", false},
    Kind{"PostgreSQL database with PostGIS extension", u"SDE", false},
};

const Kind* KindOf(const QString& storage) {
  for (const Kind& kind : kKinds) {
    if (storage.compare(QLatin1String(kind.storage), Qt::CaseInsensitive) == 0) return &kind;
  }
  return nullptr;
}

}  // namespace

SourceDescription SourceFacts(const QgsVectorLayer& layer) {
  SourceDescription facts;
  const QString storage = layer.storageType();
  const Kind* kind = KindOf(storage);
  facts.workspace = kind ? Text(kind->workspace) : FromQt(storage);
  facts.featureClass = facts.workspace + u" Feature Class";
  const QString path = QgsProviderRegistry::instance()
                           ->decodeUri(layer.providerType(), layer.source())
                           .value(QStringLiteral("path"))
                           .toString();
  if (!path.isEmpty()) {
    facts.path = (kind && kind->folder ? QFileInfo(path).absolutePath() : path).toStdString();
  }
  return facts;
}

}  // namespace brelmon::qgis
