// SPDX-License-Identifier: GPL-2.0-or-later
// What QGIS and GDAL agree on in delimited text.
#include "hosts/qgis/data/delimitedtext.h"

#include <qgsvectordataprovider.h>

#include <QFile>
#include <QUrl>
#include <QUrlQuery>
#include <algorithm>

#include "hosts/qgis/data/featurereader.h"

namespace brelmon::qgis {
namespace {

/// Options that leave the reading as it is, whatever they say.
const QStringList kHarmless{"detectTypes", "xField",       "yField",      "wktField",  "crs",
                            "geomType",    "spatialIndex", "subsetIndex", "watchFile", "quiet",
                            "maxFields",   "delimiter",    "useHeader"};
/// And those that do if they say just this.
const QList<QPair<QString, QString>> kPlain{
    {"type", "csv"},      {"quote", "\""},           {"escape", "\""},      {"skipLines", "0"},
    {"trimFields", "no"}, {"skipEmptyFields", "no"}, {"decimalPoint", "."}, {"encoding", "UTF-8"}};

QUrl UrlOf(const QgsVectorLayer& layer) { return QUrl::fromEncoded(layer.source().toUtf8()); }

/// Lines, the last one with or without its end; -1 for a file that can't be read.
std::int64_t LinesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return -1;
  std::int64_t lines = 0;
  char last = '\n';
  for (QByteArray block = file.read(1 << 20); !block.isEmpty(); block = file.read(1 << 20)) {
    lines += std::count(block.begin(), block.end(), '\n');
    last = block.back();
  }
  return last == '\n' ? lines : lines + 1;
}

}  // namespace

bool IsDelimitedText(const QgsVectorLayer& layer) {
  return layer.providerType() == QLatin1String("delimitedtext");
}

QString PlainDelimitedText(const QgsVectorLayer& layer) {
  QUrl url = UrlOf(layer);
  QUrlQuery plain;
  for (const auto& option : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) {
    if (option.first == QLatin1String("subset")) continue;
    if (!kHarmless.contains(option.first) && !kPlain.contains(option)) return {};
    plain.addQueryItem(option.first, option.second);
  }
  if (layer.dataProvider()->encoding() != QLatin1String("UTF-8")) return {};
  url.setQuery(plain);
  return QString::fromUtf8(url.toEncoded());
}

std::int64_t HeadLines(const QgsVectorLayer& layer) {
  return QUrlQuery(UrlOf(layer)).queryItemValue("useHeader") == QLatin1String("no") ? 0 : 1;
}

bool ReadsAlike(const QgsVectorLayer& layer, data::TableSource& file, const QString& path) {
  const std::vector<columns::Field> shown = ColumnsOf(layer);
  const auto same = [](const columns::Field& one, const columns::Field& other) {
    return one.Name == other.Name && one.Type == other.Type && one.Stored == other.Stored;
  };
  if (!std::equal(shown.begin(), shown.end(), file.Fields().begin(), file.Fields().end(), same)) {
    return false;
  }
  const std::int64_t rows = file.CountRows({});
  if (LinesOf(path) != HeadLines(layer) + rows) return false;
  // QGIS leaves out rows whose place it can't read; under a filter they can't be counted.
  return layer.subsetString().isEmpty() ? layer.featureCount() == rows : !layer.isSpatial();
}

}  // namespace brelmon::qgis
