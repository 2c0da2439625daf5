// SPDX-License-Identifier: GPL-2.0-or-later
// Attributes one after the other, in batches.
#include "hosts/qgis/data/featurereader.h"

#include <qgsfeatureiterator.h>
#include <qgsgeometryengine.h>

#include <QDateTime>
#include <QPointer>

#include "hosts/columns/columnbuffer.h"
#include "hosts/common/hostfailure.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

using columns::Batch, columns::ColumnBuffer, columns::Storage;

constexpr std::size_t kRows = 1024;

Storage StorageOf(QVariant::Type type) {
  switch (type) {
    case QVariant::Bool:
    case QVariant::Int:
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
      return Storage::Whole;
    case QVariant::Double:
      return Storage::Real;
    case QVariant::Date:
    case QVariant::DateTime:
      return Storage::Moment;
    case QVariant::String:
      return Storage::Text;
    default:
      return Storage::Other;
  }
}

columns::Moment MomentOf(const QDateTime& time) {
  const QDate day = time.date();
  const QTime clock = time.time();
  columns::Moment moment;
  moment.Year = static_cast<std::int16_t>(day.year());
  moment.Month = static_cast<std::uint8_t>(day.month());
  moment.Day = static_cast<std::uint8_t>(day.day());
  moment.Hour = static_cast<std::uint8_t>(clock.hour());
  moment.Minute = static_cast<std::uint8_t>(clock.minute());
  moment.Second = static_cast<float>(clock.second()) + static_cast<float>(clock.msec()) / 1000;
  return moment;
}

struct ShownBatch : Batch {
  std::vector<ColumnBuffer> buffers;
  columns::TextRoom texts;
};

class ShownReader : public columns::IBatchReader {
 public:
  ShownReader(QgsVectorLayer& layer, std::vector<std::size_t> fields,
              std::vector<columns::Field> columns)
      : layer_(&layer), fields_(std::move(fields)), columns_(std::move(columns)) {
    QgsAttributeList attributes;
    for (const std::size_t field : fields_) attributes.push_back(static_cast<int>(field));
    QgsFeatureRequest request;
    request.setFlags(QgsFeatureRequest::NoGeometry).setSubsetOfAttributes(attributes);
    rows_ = layer.getFeatures(request);
  }

  std::shared_ptr<Batch> Next() override {
    if (!layer_) {
      host::Fail(failure::kNoSuchObject, "The layer of these rows is no longer in the map.");
    }
    auto batch = std::make_shared<ShownBatch>();
    batch->Ids.resize(kRows);
    batch->Columns.resize(columns_.size());
    batch->buffers.resize(columns_.size());
    for (const std::size_t field : fields_) {
      batch->buffers[field].Start(columns_[field].Stored, kRows);
    }
    while (batch->Rows < kRows && rows_.nextFeature(row_)) {
      for (const std::size_t field : fields_) Take(*batch, field);
      batch->Ids[batch->Rows] = row_.id();
      batch->Live.push_back(static_cast<std::uint32_t>(batch->Rows++));
    }
    if (batch->Rows == 0) return nullptr;
    for (const std::size_t field : fields_) batch->Columns[field] = batch->buffers[field].View();
    return batch;
  }

 private:
  void Take(ShownBatch& batch, std::size_t field) {
    const QVariant value = row_.attribute(static_cast<int>(field));
    ColumnBuffer& column = batch.buffers[field];
    if (value.isNull()) return column.SetNull(batch.Rows);
    switch (columns_[field].Stored) {
      case Storage::Whole:
        column.Wholes[batch.Rows] = value.toLongLong();
        break;
      case Storage::Real:
        column.Reals[batch.Rows] = value.toDouble();
        break;
      case Storage::Moment:
        column.Moments[batch.Rows] = MomentOf(value.toDateTime());
        break;
      default: {
        const QByteArray text = value.toString().toUtf8();
        column.Texts[batch.Rows] =
            batch.texts.Put({text.constData(), static_cast<std::size_t>(text.size())});
      }
    }
  }

  QPointer<QgsVectorLayer> layer_;
  std::vector<std::size_t> fields_;
  std::vector<columns::Field> columns_;
  QgsFeatureIterator rows_;
  QgsFeature row_;
};

}  // namespace

std::vector<columns::Field> ColumnsOf(const QgsVectorLayer& layer) {
  std::vector<columns::Field> made;
  const QgsFields fields = layer.fields();
  for (int i = 0; i < fields.size(); ++i) {
    const QVariant::Type type = fields.at(i).type();
    columns::Field field{ToUtf8(FromQt(fields.at(i).name())), TypeOf(fields.at(i)),
                         StorageOf(type)};
    field.Logical = type == QVariant::Bool;
    field.TimeOfDay = type != QVariant::Date;
    made.push_back(std::move(field));
  }
  return made;
}

std::unique_ptr<columns::IBatchReader> ReadShown(QgsVectorLayer& layer,
                                                 std::vector<std::size_t> fields,
                                                 std::vector<columns::Field> columns) {
  return std::make_unique<ShownReader>(layer, std::move(fields), std::move(columns));
}

columns::RowIds TouchingIds(QgsVectorLayer& layer, const QgsGeometry& shape, bool justOne) {
  columns::RowIds ids;
  QgsFeatureRequest request;
  request.setFilterRect(shape.boundingBox()).setNoAttributes();
  std::unique_ptr<QgsGeometryEngine> engine(QgsGeometry::createGeometryEngine(shape.constGet()));
  engine->prepareGeometry();
  QgsFeatureIterator at = layer.getFeatures(request);
  for (QgsFeature feature; at.nextFeature(feature);) {
    CheckStep();
    if (!feature.hasGeometry() || !engine->intersects(feature.geometry().constGet())) continue;
    ids.push_back(feature.id());
    if (justOne) break;
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

}  // namespace brelmon::qgis
