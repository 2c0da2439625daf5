// SPDX-License-Identifier: GPL-2.0-or-later
// The cursor of a local dBASE table. Each row object keeps its record's bytes.
#include <algorithm>

#include "hosts/common/hostfailure.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/uniquevalues.h"
#include "hosts/headless/dbfrows.h"

namespace brelmon::headless {
namespace {

/// Which fields are read; the others are empty.
using ReadFields = std::vector<bool>;

class DbfRow : public IRowBuffer {
 public:
  DbfRow(std::shared_ptr<VectorSource> source, std::shared_ptr<const DbfTable> table,
         std::shared_ptr<const ReadFields> read)
      : source_(std::move(source)), table_(std::move(table)), read_(std::move(read)) {}
  void Take(const DbfRows& rows) {
    record_.assign(rows.Record());
    id_ = rows.Id();
  }

  brelmon::Value Value(std::int32_t index) override {
    const auto& fields = source_->Fields();
    if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) {
      host::Fail(failure::kSubscript);
    }
    const auto at = static_cast<std::size_t>(index);
    if (!(*read_)[at]) return {};
    return ReadValue(*source_, *table_, record_, id_, fields[at]);
  }

 private:
  std::shared_ptr<VectorSource> source_;
  std::shared_ptr<const DbfTable> table_;
  std::shared_ptr<const ReadFields> read_;
  std::string record_;
  GIntBig id_ = 0;
};

class DbfCursor : public ICursor, public host::ICursorFields {
 public:
  DbfCursor(std::shared_ptr<VectorSource> source, std::unique_ptr<DbfRows> rows,
            const RowRequest& request, bool recycling, std::shared_ptr<const RowIds> only)
      : source_(std::move(source)),
        rows_(std::move(rows)),
        recycling_(recycling),
        only_(std::move(only)) {
    auto read = std::make_shared<ReadFields>(source_->Fields().size(), request.allFields);
    for (const std::int32_t field : request.fields) (*read)[static_cast<std::size_t>(field)] = true;
    read_ = std::move(read);
  }

  Ref<IRowBuffer> NextRow() override {
    do {
      started_ = true;
      if (!rows_->Next()) return {};
    } while (only_ && !IsAmongOnly(rows_->Id()));
    if (!recycling_ || !row_) row_ = std::make_shared<DbfRow>(source_, rows_->Table(), read_);
    row_->Take(*rows_);
    return Ref<IRowBuffer>(row_);
  }

  std::int32_t FindField(const Text& name) override { return source_->FindField(name); }

  void ReadOnly(std::int32_t index) override {
    if (started_) return;
    auto read = std::make_shared<ReadFields>(source_->Fields().size(), false);
    (*read)[static_cast<std::size_t>(index)] = true;
    read_ = std::move(read);
    recycling_ = true;
  }

 private:
  /// Both ascend.
  bool IsAmongOnly(GIntBig id) {
    while (next_ < only_->size() && (*only_)[next_] < id) ++next_;
    return next_ < only_->size() && (*only_)[next_] == id;
  }

  std::shared_ptr<VectorSource> source_;
  std::unique_ptr<DbfRows> rows_;
  bool recycling_, started_ = false;
  std::shared_ptr<const RowIds> only_;
  std::size_t next_ = 0;
  std::shared_ptr<const ReadFields> read_;
  std::shared_ptr<DbfRow> row_;
};

}  // namespace

Ref<ICursor> NewDbfCursor(const std::shared_ptr<VectorSource>& source, const RowRequest& request,
                          bool recycling, std::shared_ptr<const RowIds> only) {
  auto rows = DbfRows::Open(source, request.clause);
  if (!rows) return {};
  return New<DbfCursor>(source, std::move(rows), request, recycling, std::move(only));
}

}  // namespace brelmon::headless
