// SPDX-License-Identifier: GPL-2.0-or-later
// Which layers read a file as it is, and the file's second handle.
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayereditbuffer.h>

#include <QDateTime>
#include <QFileInfo>

#include "hosts/qgis/data/layerrows.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

QString WithoutSubset(const QgsVectorLayer& layer) {
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
bool SameColumns(const QgsVectorLayer& layer, const data::VectorSource& source) {
  const QgsFields fields = layer.fields();
  if (fields.size() != static_cast<int>(source.Fields().size())) return false;
  for (int i = 0; i < fields.size(); ++i) {
    if (ToUtf8(FromQt(fields.at(i).name())) != source.Fields()[static_cast<std::size_t>(i)].Name) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool ShowsOtherRows(const QgsVectorLayer& layer) {
  const QgsFields fields = layer.fields();
  for (int i = 0; i < fields.size(); ++i) {
    if (fields.fieldOrigin(i) != QgsFields::OriginProvider) return true;
  }
  return layer.isModified();
}

const std::shared_ptr<data::VectorSource>& FileOfLayer::Of(const QgsVectorLayer& layer) {
  static const std::shared_ptr<data::VectorSource> none;
  if (!layer.isValid() || layer.providerType() != QLatin1String("ogr") || ShowsOtherRows(layer)) {
    return none;
  }
  const QString key = KeyOf(layer);
  if (key == key_) return source_;
  key_ = key;
  const data::SourceText told{"ogr",
                              WithoutSubset(layer).toStdString(),
                              {},
                              layer.dataProvider()->encoding().toStdString()};
  source_ = std::make_shared<data::VectorSource>(data::AddressOf(told, {}));
  if (!source_->Valid() || !SameColumns(layer, *source_)) source_.reset();
  QObject::disconnect(&layer, nullptr, &layerLives_, nullptr);
  QObject::connect(&layer, &QgsMapLayer::willBeDeleted, &layerLives_, [this] {
    key_.clear();
    source_.reset();
  });
  return source_;
}

}  // namespace brelmon::qgis
