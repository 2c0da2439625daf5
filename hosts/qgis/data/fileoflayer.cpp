// SPDX-License-Identifier: GPL-2.0-or-later
// Which layers read a file as it is, and the file's second handle.
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayereditbuffer.h>

#include <QDateTime>
#include <QFileInfo>

#include "hosts/qgis/data/delimitedtext.h"
#include "hosts/qgis/data/layerrows.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

/// The layer's data source without its filter; empty where QGIS reads it in a way of its own.
QString WithoutSubset(const QgsVectorLayer& layer) {
  if (layer.providerType() == QLatin1String("ogr")) {
    return layer.source().section(QStringLiteral("|subset="), 0, 0);
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
  if (!layer.isValid() || ShowsOtherRows(layer)) return none;
  const QString source = WithoutSubset(layer), path = PathOf(layer);
  if (source.isEmpty()) return none;
  const QString key = KeyOf(layer, source, path);
  if (key == key_) return source_;
  key_ = key;
  const data::SourceText told{layer.providerType().toStdString(),
                              source.toStdString(),
                              {},
                              layer.dataProvider()->encoding().toStdString()};
  source_ = std::make_shared<data::VectorSource>(data::AddressOf(told, {}));
  const bool alike = source_->Valid() && (IsDelimitedText(layer) ? ReadsAlike(layer, *source_, path)
                                                                 : SameColumns(layer, *source_));
  if (!alike) source_.reset();
  return source_;
}

}  // namespace brelmon::qgis
