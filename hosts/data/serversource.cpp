// SPDX-License-Identifier: GPL-2.0-or-later
// Tables on servers with shapes and reference systems of GDAL's, and which kind of source is which.
#include <functional>

#include "hosts/common/hostfailure.h"
#include "hosts/data/openpolicy.h"
#include "hosts/data/sourcekind.h"
#include "hosts/data/vectorsource.h"
#include "hosts/servers/servertable.h"

namespace brelmon::data {
namespace {

constexpr const char* kDriver = "PostgreSQL";

class ServerSource : public TableSource {
 public:
  explicit ServerSource(SourceAddress address) : TableSource(std::move(address)) {
    kind_ = KindOf({}, kDriver);
    ownSql_ = HasSqlOfItsOwn(kDriver);
    if (!problem_.empty()) return;
    try {
      table_ = std::make_unique<servers::ServerTable>(*address_.server);
      hasGeometry_ = table_->Facts().HasGeometry;
    } catch (const Failure& failure) {
      problem_ = ToUtf8(failure.Description);
    }
  }

  bool IsShared() const override { return true; }
  std::string WorkspacePath() const override { return {}; }
  Text TableName() const override {
    return FromUtf8(table_ ? table_->Facts().Table : address_.server->Table);
  }
  const OGRSpatialReference* ReferenceSystem() override {
    if (!crsRead_ && table_) {
      crsRead_ = true;
      const std::string told = table_->ReferenceSystem();
      if (!told.empty()) crs_ = ReferenceSystemIn(told);
    }
    return crs_.get();
  }
  bool Extent(OGREnvelope& extent) override {
    servers::ServerTable::Box box;
    if (!table_ || !table_->Extent(box)) return false;
    extent.MinX = box.MinX;
    extent.MinY = box.MinY;
    extent.MaxX = box.MaxX;
    extent.MaxY = box.MaxY;
    return true;
  }
  columns::RowIds IdsTouching(const Text& clause, const OGRGeometry& shape, bool justOne) override {
    std::string wkb(shape.WkbSize(), '\0');
    shape.exportToWkb(wkbNDR, reinterpret_cast<unsigned char*>(wkb.data()), wkbVariantIso);
    return Table().IdsTouching(clause, wkb, justOne);
  }

  // IRowSource.
  const std::vector<columns::Field>& Fields() const override {
    static const std::vector<columns::Field> none;
    return table_ ? table_->Fields() : none;
  }
  const columns::CodePage& Encoding() override { return utf8_; }
  void TryClause(TextView clause) override { Table().TryClause(clause); }
  std::unique_ptr<columns::IBatchReader> Read(const columns::RowRequest& request) override {
    return Table().Read(request);
  }
  std::int64_t CountRows(const Text& clause) override { return Table().CountRows(clause); }
  columns::RowIds IdsOfRows(const Text& clause, bool justOne) override {
    return Table().IdsOfRows(clause, justOne);
  }
  std::unique_ptr<columns::IBatchReader> ReadValues(const columns::RowRequest& request) override {
    return Table().ReadValues(request);
  }
  bool Group(const columns::RowRequest& request, std::size_t key,
             const std::vector<columns::TalliedField>& fields,
             columns::DissolveGroups& groups) override {
    return Table().Group(request, key, fields, groups);
  }

 private:
  servers::ServerTable& Table() {
    CheckValid();
    return *table_;
  }

  std::unique_ptr<servers::ServerTable> table_;  // null with a problem
  std::unique_ptr<OGRSpatialReference> crs_;
  bool crsRead_ = false;
  columns::CodePage utf8_;
};

}  // namespace

void TableSource::CheckValid() const {
  if (Valid()) return;
  host::Fail(failure::kFileNotFound,
             "The data can't be reached: " + address_.path + ": " + problem_);
}

std::shared_ptr<TableSource> OpenSource(SourceAddress address) {
  if (address.server) return std::make_shared<ServerSource>(std::move(address));
  return std::make_shared<VectorSource>(std::move(address));
}

}  // namespace brelmon::data
