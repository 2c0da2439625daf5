// SPDX-License-Identifier: GPL-2.0-or-later
// Which layers read a file or a table on a server as it is, and its second handle.
#include <qgsdatasourceuri.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayereditbuffer.h>

#include <QDateTime>
#include <QFileInfo>

#include "hosts/data/openpolicy.h"
#include "hosts/qgis/data/delimitedtext.h"
#include "hosts/qgis/data/layerrows.h"
#include "hosts/qgis/data/rowids.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

bool IsOnServer(const QgsVectorLayer& layer) {
  return layer.providerType() == QLatin1String("postgres");
}

/// The layer's data source without its filter; empty where QGIS reads it in a way of its own.
QString WithoutSubset(const QgsVectorLayer& layer) {
  if (layer.providerType() == QLatin1String("ogr")) {
    return layer.source().section(QStringLiteral("|subset="), 0, 0);
  }
  if (IsOnServer(layer)) {
    QgsDataSourceUri uri(layer.source());
    uri.setSql({});
    return uri.uri(false);
  }
  // A filter that wasn't set here has no clause.
  const bool clauseKnown = layer.subsetString().isEmpty() || HasClause(layer);
  return IsDelimitedText(layer) && clauseKnown ? PlainDelimitedText(layer) : QString();
}

QString PathOf(const QgsVectorLayer& layer) {
  return QgsProviderRegistry::instance()
      ->decodeUri(layer.providerType(), layer.source())
      .value(QStringLiteral("path"))
      .toString();
}

/// Changes with the layer's source and with the files that hold it.
QString KeyOf(const QgsVectorLayer& layer, const QString& source, const QString& path) {
  QString key = source + QChar(0) + layer.dataProvider()->encoding();
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

data::SourceAddress FileAddress(const QgsVectorLayer& layer, const QString& source) {
  return data::AddressOf({layer.providerType().toStdString(),
                          source.toStdString(),
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

void FileOfLayer::Reopen(const QgsVectorLayer& layer, const QString& source) {
  const data::SourceAddress address =
      IsOnServer(layer) ? ServerAddress(layer) : FileAddress(layer, source);
  source_ = data::OpenSource(address);
  damage_.clear();
  alike_.reset();
  QObject::disconnect(&layer, nullptr, &layerLives_, nullptr);
  QObject::connect(&layer, &QgsMapLayer::willBeDeleted, &layerLives_, [this] {
    key_.clear();
    source_.reset();
  });
  if (source_->Valid()) return;
  if (!IsOnServer(layer) && data::IsDamaged(address, data::Content::Rows)) {
    damage_ = address.path + ": " + source_->Problem();
  }
  source_.reset();
}

const std::shared_ptr<data::TableSource>& FileOfLayer::Of(const QgsVectorLayer& layer) {
  static const std::shared_ptr<data::TableSource> none;
  if (!layer.isValid()) return none;
  const QString source = WithoutSubset(layer), path = PathOf(layer);
  if (source.isEmpty()) return none;
  const QString key = KeyOf(layer, source, path);
  if (key != key_) Reopen(layer, source);
  key_ = key;
  if (!source_ || ShowsOtherRows(layer)) return none;
  if (!alike_) {
    alike_ = IsDelimitedText(layer) ? ReadsAlike(layer, *source_, path)
                                    : SameColumns(layer, *source_) && KnowsIds(layer, *source_);
  }
  return *alike_ ? source_ : none;
}

}  // namespace brelmon::qgis
