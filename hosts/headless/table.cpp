// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of layers and tables out of GDAL's sources.
#include "hosts/headless/table.h"

#include "hosts/common/hostfailure.h"
#include "hosts/headless/problem.h"
#include "hosts/headless/shape.h"

namespace brelmon::headless {
namespace {

class Table : public document::Table, public IHostTable, public IProblem {
 public:
  explicit Table(TableSettings settings)
      : document::Table(settings), source_(std::move(settings.source)), crs_(settings.crs) {}

  const std::shared_ptr<data::TableSource>& Source() override { return source_; }
  const OGRSpatialReference* ReferenceSystem() override {
    if (crs_) return crs_.get();
    return source_ ? source_->ReferenceSystem() : nullptr;
  }
  std::string Problem() override {
    if (IsGone()) return "it is no longer part of the map";
    return source_ ? source_->Problem() : "it has no data";
  }

 protected:
  std::shared_ptr<columns::IRowSource> RowsOfData() const override { return source_; }
  bool HasReachedData() const override { return source_->Valid(); }
  void ReachData() override { source_->CheckValid(); }
  bool HasShapes() const override { return source_->HasGeometry(); }
  bool IsShared() const override { return source_->IsShared(); }
  bool CountsFast() const override { return source_->HasOwnSql(); }
  columns::RowIds IdsMeeting(const Ref<IGeometry>& shape, const Text& clause,
                             bool justOne) override {
    const GeometryPtr own = shape.As<Shape>()->In(ReferenceSystem());
    return source_->IdsTouching(clause, *own, justOne);
  }
  Place DataPlace() const override {
    return {source_->WorkspacePath(), source_->Address().path, source_->Kind(),
            source_->TableName()};
  }
  void Bind(const Ref<ITable>& table) {
    const Ref<IHostTable> other = table.As<IHostTable>();
    if (!other) host::Fail(failure::kObjectNotSet);
    source_ = other->Source();
  }

 private:
  std::shared_ptr<data::TableSource> source_;
  std::shared_ptr<const OGRSpatialReference> crs_;
};

}  // namespace

Ref<ILayer> NewFeatureLayer(TableSettings settings) {
  return New<document::FeatureLayerOver<Table>>(std::move(settings));
}

Ref<IStandaloneTable> NewStandaloneTable(TableSettings settings) {
  return New<document::StandaloneTableOver<Table>>(std::move(settings));
}

Ref<ITable> OpenTable(const std::string& systemPath) {
  data::SourceAddress address;
  address.path = systemPath;
  TableSettings settings;
  settings.source = data::OpenSource(address);
  settings.source->CheckValid();
  settings.name = settings.source->TableName();
  return New<Table>(std::move(settings));
}

}  // namespace brelmon::headless
