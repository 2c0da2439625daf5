// SPDX-License-Identifier: GPL-2.0-or-later
// In delimited text a row's number is its line's. On servers keys of 32 bits are the numbers, those
// below 0 above all others; keys of 64 bits are numbered as they are met, so QGIS has to be asked.
#include "hosts/qgis/data/rowids.h"

#include <qgsexpression.h>
#include <qgsfeatureiterator.h>
#include <qgsfeaturerequest.h>

#include <algorithm>
#include <limits>

#include "hosts/qgis/data/delimitedtext.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

using columns::RowIds;

constexpr std::int64_t kBehindWholes = std::int64_t{1} << 32;
constexpr std::size_t kKeysAsked = 5000;

/// The one column that numbers a layer's rows; -1 for none.
int KeyOf(const QgsVectorLayer& layer) {
  const QgsAttributeList key = layer.primaryKeyAttributes();
  return key.size() == 1 ? key.front() : -1;
}

bool IsNumberedByKey(const QgsVectorLayer& layer) {
  return layer.fields().at(KeyOf(layer)).type() == QVariant::Int;
}

/// Key and number of features, of nothing else.
template <class Take>
void EachFeature(const QgsVectorLayer& layer, QgsFeatureRequest request, Take take) {
  request.setFlags(QgsFeatureRequest::NoGeometry);
  request.setSubsetOfAttributes(QgsAttributeList{KeyOf(layer)});
  QgsFeatureIterator features = layer.getFeatures(request);
  for (QgsFeature feature; features.nextFeature(feature);) {
    CheckStep();
    take(feature);
  }
}

RowIds Moved(RowIds ids, std::int64_t by) {
  for (std::int64_t& id : ids) id += by;
  return ids;
}

RowIds Sorted(RowIds ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
}

}  // namespace

bool KnowsIds(const QgsVectorLayer& layer, const data::TableSource& source) {
  if (!source.IsShared()) return true;
  const int key = KeyOf(layer);
  if (key < 0 || !source.Fields()[static_cast<std::size_t>(key)].IsId) return false;
  const QVariant::Type type = layer.fields().at(key).type();
  return type == QVariant::Int || type == QVariant::LongLong;
}

RowIds IdsInSource(const QgsVectorLayer& layer, const data::TableSource& source, RowIds shown) {
  if (IsDelimitedText(layer)) return Moved(std::move(shown), -HeadLines(layer));
  if (!source.IsShared()) return shown;
  if (IsNumberedByKey(layer)) {
    for (std::int64_t& id : shown) {
      if (id > std::numeric_limits<std::int32_t>::max()) id -= kBehindWholes;
    }
    return Sorted(std::move(shown));
  }
  QgsFeatureIds ids;
  for (const std::int64_t id : shown) ids.insert(id);
  RowIds keys;
  EachFeature(layer, QgsFeatureRequest(ids), [&](const QgsFeature& feature) {
    keys.push_back(feature.attribute(KeyOf(layer)).toLongLong());
  });
  return Sorted(std::move(keys));
}

RowIds IdsShown(const QgsVectorLayer& layer, const data::TableSource& source, RowIds own) {
  if (IsDelimitedText(layer)) return Moved(std::move(own), HeadLines(layer));
  if (!source.IsShared()) return own;
  if (IsNumberedByKey(layer)) {
    for (std::int64_t& id : own) {
      if (id < 0) id += kBehindWholes;
    }
    return Sorted(std::move(own));
  }
  const QString name = QgsExpression::quotedColumnRef(layer.fields().at(KeyOf(layer)).name());
  RowIds shown;
  for (std::size_t from = 0; from < own.size(); from += kKeysAsked) {
    QStringList keys;
    for (std::size_t i = from; i < std::min(own.size(), from + kKeysAsked); ++i) {
      keys.append(QString::number(own[i]));
    }
    const QString among =
        name + QStringLiteral(" IN (") + keys.join(QLatin1Char(',')) + QLatin1Char(')');
    EachFeature(layer, QgsFeatureRequest().setFilterExpression(among),
                [&](const QgsFeature& feature) { shown.push_back(feature.id()); });
  }
  return Sorted(std::move(shown));
}

}  // namespace brelmon::qgis
