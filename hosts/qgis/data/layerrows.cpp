// SPDX-License-Identifier: GPL-2.0-or-later
// Filters and clauses over a layer's rows.
#include "hosts/qgis/data/layerrows.h"

#include <qgsproject.h>
#include <qgsvectordataprovider.h>

#include <set>

#include "hosts/columns/querytokens.h"
#include "hosts/common/hostfailure.h"
#include "hosts/data/clauses.h"
#include "hosts/qgis/data/delimitedtext.h"
#include "hosts/qgis/data/expression.h"
#include "hosts/qgis/data/featurereader.h"
#include "hosts/qgis/data/fieldtable.h"
#include "hosts/qgis/data/geometry.h"
#include "hosts/qgis/data/rowids.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

using columns::Batch, columns::IBatchReader, columns::RowIds, columns::RowRequest;

/// Of a layer whose filter stands in another language: that expression, and the clause it is of.
const QString kExpression = QStringLiteral("brelmon/filterExpression");
const QString kClause = QStringLiteral("brelmon/filter");

[[noreturn]] void Refuse(const std::string& reason) {
  host::Fail(failure::kRefused, "The query was refused: " + reason + ".");
}

/// Rows of the layer's own file or table, under the layer's filter, with QGIS's numbers.
class RowsOfFile : public columns::IRowSource {
 public:
  RowsOfFile(QgsVectorLayer& layer, std::shared_ptr<data::TableSource> file)
      : layer_(layer), file_(std::move(file)), filter_(FilterOf(layer)) {}
  const std::vector<columns::Field>& Fields() const override { return file_->Fields(); }
  const columns::CodePage& Encoding() override { return file_->Encoding(); }
  void TryClause(TextView clause) override { file_->TryClause(clause); }
  std::unique_ptr<IBatchReader> Read(const RowRequest& request) override {
    return Checked(file_->Read(InSource(request)));
  }
  std::unique_ptr<IBatchReader> ReadValues(const RowRequest& request) override {
    return Checked(file_->ReadValues(InSource(request)));
  }
  bool Group(const RowRequest& request, std::size_t key,
             const std::vector<columns::TalliedField>& fields,
             columns::DissolveGroups& groups) override {
    CheckStep();
    return file_->Group(InSource(request), key, fields, groups);
  }
  std::int64_t CountRows(const Text& clause) override {
    CheckStep();
    return file_->CountRows(Both(clause));
  }
  RowIds IdsOfRows(const Text& clause, bool justOne) override {
    CheckStep();
    return IdsShown(layer_, *file_, file_->IdsOfRows(Both(clause), justOne));
  }

 private:
  Text Both(const Text& clause) const { return columns::BothClauses(filter_, clause); }
  RowRequest InSource(const RowRequest& request) const {
    RowRequest both = request;
    both.Clause = Both(request.Clause);
    if (request.Only) {
      both.Only = std::make_shared<RowIds>(IdsInSource(layer_, *file_, *request.Only));
    }
    return both;
  }
  static std::unique_ptr<IBatchReader> Checked(std::unique_ptr<IBatchReader> rows) {
    return columns::Thinned(std::move(rows), [](Batch&) { CheckStep(); });
  }

  QgsVectorLayer& layer_;
  std::shared_ptr<data::TableSource> file_;
  Text filter_;
};

/// Features as QGIS shows them, with the clause evaluated on them here.
class RowsShown : public columns::IRowSource {
 public:
  explicit RowsShown(QgsVectorLayer& layer) : layer_(layer), fields_(ColumnsOf(layer)) {}
  const std::vector<columns::Field>& Fields() const override { return fields_; }
  const columns::CodePage& Encoding() override { return utf8_; }

  void TryClause(TextView clause) override {
    if (columns::IsBlank(clause)) return;
    const columns::ClauseNames names = columns::NamesIn(clause);
    if (!names.fault.empty()) Refuse(names.fault);
    std::vector<Text> known{u"FID"};
    for (const columns::Field& field : fields_) known.push_back(FromUtf8(field.Name));
    if (const auto unknown = columns::UnknownField(names, known)) {
      Refuse("there is no field \"" + ToUtf8(*unknown) + "\"");
    }
    data::WhereOf(clause, fields_);
  }

  std::unique_ptr<IBatchReader> Read(const RowRequest& request) override {
    std::shared_ptr<const columns::Where> where;
    std::set<std::size_t> fields(request.Fields.begin(), request.Fields.end());
    if (!columns::IsBlank(request.Clause)) {
      where = data::WhereOf(request.Clause, fields_);
      fields.insert(where->Fields().begin(), where->Fields().end());
    }
    auto rows = ReadShown(layer_, {fields.begin(), fields.end()}, fields_);
    return columns::Thinned(std::move(rows), [where, only = request.Only](Batch& batch) {
      CheckStep();
      if (only) columns::KeepOnly(batch, *only);
      if (where) where->Keep(batch);
    });
  }

  std::int64_t CountRows(const Text& clause) override {
    const long long known = columns::IsBlank(clause) ? layer_.featureCount() : -1;
    return known >= 0 ? known : IRowSource::CountRows(clause);
  }

 private:
  QgsVectorLayer& layer_;
  std::vector<columns::Field> fields_;
  columns::CodePage utf8_;
};

QgsGeometry InLayer(const ISpatialFilter& filter, const QgsVectorLayer& layer) {
  const PlacedGeometry placed = GeometryOf(filter.Geometry);
  QgsGeometry shape = placed.geometry;
  const QgsCoordinateTransform transform(placed.crs, layer.crs(), QgsProject::instance());
  if (shape.transform(transform) != Qgis::GeometryOperationResult::Success) {
    host::Fail(failure::kInvalidCall,
               "The shape can't be brought into the layer's reference system.");
  }
  return shape;
}

/// The same shape as GDAL has it.
std::unique_ptr<OGRGeometry> OgrShape(const QgsGeometry& shape) {
  const QByteArray wkb = shape.asWkb();
  OGRGeometry* made = nullptr;
  OGRGeometryFactory::createFromWkb(wkb.constData(), nullptr, &made,
                                    static_cast<size_t>(wkb.size()));
  return std::unique_ptr<OGRGeometry>(made);
}

}  // namespace

std::shared_ptr<columns::IRowSource> RowsOf(QgsVectorLayer& layer,
                                            std::shared_ptr<data::TableSource> file) {
  if (!file) return std::make_shared<RowsShown>(layer);
  return std::make_shared<RowsOfFile>(layer, std::move(file));
}

RowIds MatchingIds(QgsVectorLayer& layer, const std::shared_ptr<data::TableSource>& file,
                   const Ref<IQueryFilter>& filter, bool justOne) {
  const Text clause = ClauseOf(filter);
  const auto rows = RowsOf(layer, file);
  rows->TryClause(clause);
  const auto spatial = filter.TryAs<ISpatialFilter>();
  if (!spatial) return rows->IdsOfRows(clause, justOne);
  if (!layer.isSpatial() || !EqualNoCase(spatial->GeometryField, data::kShapeField)) {
    Refuse("there is no geometry field \"" + ToUtf8(spatial->GeometryField) + "\"");
  }
  if (spatial->SpatialRel != 1) host::Fail(failure::kNotSupported);
  const QgsGeometry shape = InLayer(*spatial, layer);
  const Text both = columns::BothClauses(FromQt(layer.subsetString()), clause);
  if (file) {
    if (const auto made = OgrShape(shape)) {
      return IdsShown(layer, *file, file->IdsTouching(both, *made, justOne));
    }
  }
  RowIds ids = TouchingIds(layer, shape, justOne && clause.empty());
  if (clause.empty()) return ids;
  return columns::Combined(rows->IdsOfRows(clause, false), std::move(ids), SelectionMethod::And);
}

bool HasClause(const QgsVectorLayer& layer) {
  const QString filter = layer.subsetString();
  return !filter.isEmpty() && layer.customProperty(kExpression).toString() == filter;
}

Text FilterOf(const QgsVectorLayer& layer) {
  return FromQt(HasClause(layer) ? layer.customProperty(kClause).toString() : layer.subsetString());
}

void SetFilter(QgsVectorLayer& layer, const Text& clause) {
  const bool blank = columns::IsBlank(clause);
  QString filter = blank ? QString() : ToQt(clause);
  // Delimited text is filtered by expressions: the same rows in another language.
  const bool translated = !blank && IsDelimitedText(layer);
  if (translated) {
    const auto expression = ExpressionOf(clause, ColumnsOf(layer));
    if (!expression) Refuse("as a filter of delimited text it can't be put; select by it instead");
    filter = *expression;
  }
  // A server was asked about the clause already, and would count its rows.
  const bool tried = blank || layer.providerType() == QLatin1String("postgres");
  if (!layer.setSubsetString(filter) || (!tried && layer.dataProvider()->featureCount() == -1)) {
    Refuse("the layer's provider takes no such filter");
  }
  if (translated) {
    layer.setCustomProperty(kExpression, filter);
    layer.setCustomProperty(kClause, ToQt(clause));
  } else {
    layer.removeCustomProperty(kExpression);
    layer.removeCustomProperty(kClause);
  }
}

Text ClauseOf(const Ref<IQueryFilter>& filter) {
  return !filter || columns::IsBlank(filter->WhereClause) ? Text() : filter->WhereClause;
}

}  // namespace brelmon::qgis
