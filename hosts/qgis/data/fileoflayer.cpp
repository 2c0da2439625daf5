// SPDX-License-Identifier: GPL-2.0-or-later
// Which layers read a file as it is, and the file's second handle.
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayereditbuffer.h>

#include <QDateTime>
#include <QFileInfo>

#include "hosts/data/openpolicy.h"
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

void FileOfLayer::Reopen(const QgsVectorLayer& layer) {
  const data::SourceText told{"ogr",
                              WithoutSubset(layer).toStdString(),
                              {},
                              layer.dataProvider()->encoding().toStdString()};
  const data::SourceAddress address = data::AddressOf(told, {});
  source_ = std::make_shared<data::VectorSource>(address);
  damage_.clear();
  sameColumns_.reset();
  if (source_->Valid()) return;
  if (data::IsDamaged(address, data::Content::Rows)) {
    damage_ = address.path + ": " + source_->Problem();
  }
  source_.reset();
}

const std::shared_ptr<data::VectorSource>& FileOfLayer::Of(const QgsVectorLayer& layer) {
  static const std::shared_ptr<data::VectorSource> none;
  if (!layer.isValid() || layer.providerType() != QLatin1String("ogr")) return none;
  const QString key = KeyOf(layer);
  if (key != key_) Reopen(layer);
  key_ = key;
  if (!source_ || ShowsOtherRows(layer)) return none;
  if (!sameColumns_) sameColumns_ = SameColumns(layer, *source_);
  return *sameColumns_ ? source_ : none;
}

}  // namespace brelmon::qgis
