// SPDX-License-Identifier: GPL-2.0-or-later
// What a layer's data source is called in the platform's terms.
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>

#include <QFileInfo>

#include "hosts/data/sourcekind.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
SourceDescription SourceFacts(const QgsVectorLayer& layer) {
  SourceDescription facts;
  facts.workspace = data::KindOf({}, layer.storageType().toStdString());
  facts.featureClass = facts.workspace + u" Feature Class";
  const QString path = QgsProviderRegistry::instance()
                           ->decodeUri(layer.providerType(), layer.source())
                           .value(QStringLiteral("path"))
                           .toString();
  if (!path.isEmpty()) {
    const bool isFile = data::HoldsOneTable(facts.workspace);
    facts.path = (isFile ? QFileInfo(path).absolutePath() : path).toStdString();
  }
  return facts;
}

}  // namespace brelmon::qgis
