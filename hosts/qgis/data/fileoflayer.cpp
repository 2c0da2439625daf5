// SPDX-License-Identifier: GPL-2.0-or-later
// Which layers read a file or a table on a server as it is, and its second handle.
#include <qgsdatasourceuri.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayereditbuffer.h>

#include <QDateTime>
#include <QFileInfo>

#include "hosts/qgis/data/layerrows.h"
#include "hosts/qgis/data/rowids.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"
#include "hosts/servers/connection.h"

namespace brelmon::qgis {
namespace {

QString WithoutSubset(const QgsVectorLayer& layer) {
  if (layer.providerType() == QLatin1String("postgres")) {
    QgsDataSourceUri uri(layer.source());
    uri.setSql({});
    return uri.uri(false);
  }
  return layer.source().section(QStringLiteral("|subset="), 0, 0);
}

/// Changes with the layer's source and with the files that hold it.
QString KeyOf(const QgsVectorLayer& layer) {
  const QString path = QgsProviderRegistry::instance()
                           ->decodeUri(layer.providerType(), layer.source())
                           .value(QStringLiteral("path"))
                           .toString();
  QString key = WithoutSubset(layer) + QChar(0) + layer.dataProvider()->encoding();
  const QFileInfo file(path);
  for (const QString& each :
       {path, file.path() + QStringLiteral("/") + file.completeBaseName() + QStringLiteral(".dbf"),
        path + QStringLiteral("-wal")}) {
    const QFileInfo info(each);
    if (!info.exists()) continue;
    key += QChar(0) + QString::number(info.size()) + QChar(0) +
           QString::number(info.lastModified().toMSecsSinceEpoch());
  }
  return key;
}

/// Whether both tell the same columns under the same names.
bool SameColumns(const QgsVectorLayer& layer, const data::TableSource& source) {
  const QgsFields fields = layer.fields();
  if (fields.size() != static_cast<int>(source.Fields().size())) return false;
  for (int i = 0; i < fields.size(); ++i) {
    if (ToUtf8(FromQt(fields.at(i).name())) != source.Fields()[static_cast<std::size_t>(i)].Name) {
      return false;
    }
  }
  return true;
}

data::SourceAddress FileAddress(const QgsVectorLayer& layer) {
  return data::AddressOf({"ogr",
                          WithoutSubset(layer).toStdString(),
                          {},
                          layer.dataProvider()->encoding().toStdString()},
                         {});
}

/// The layer's own settings; what QGIS keeps for it among its credentials is put in.
data::SourceAddress ServerAddress(const QgsVectorLayer& layer) {
  QgsDataSourceUri uri(layer.source());
  uri.setSql({});
  data::SourceAddress address =
      data::AddressOf({"postgres", uri.uri(true).toStdString(), {}, {}}, {});
  auto server = std::make_shared<servers::Address>(*address.server);
  server->Trusted = true;  // QGIS is connected to it
  address.server = server;
  return address;
}

}  // namespace

bool ShowsOtherRows(const QgsVectorLayer& layer) {
  const QgsFields fields = layer.fields();
  for (int i = 0; i < fields.size(); ++i) {
    if (fields.fieldOrigin(i) != QgsFields::OriginProvider) return true;
  }
  return layer.isModified();
}

const std::shared_ptr<data::TableSource>& FileOfLayer::Of(const QgsVectorLayer& layer) {
  static const std::shared_ptr<data::TableSource> none;
  const bool server = layer.providerType() == QLatin1String("postgres");
  const bool file = layer.providerType() == QLatin1String("ogr");
  if (!layer.isValid() || (!file && !server) || ShowsOtherRows(layer)) return none;
  if (server) {
    // Waiting for a server is a user's long work like any other.
    static const bool once = (servers::SetWhileWaiting(CheckStep), true);
    static_cast<void>(once);
  }
  const QString key = KeyOf(layer);
  if (key == key_) return source_;
  key_ = key;
  source_ = data::OpenSource(server ? ServerAddress(layer) : FileAddress(layer));
  const bool same = source_->Valid() && SameColumns(layer, *source_) && KnowsIds(layer, *source_);
  if (!same) source_.reset();
  return source_;
}

}  // namespace brelmon::qgis
