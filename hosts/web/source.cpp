// SPDX-License-Identifier: GPL-2.0-or-later
// Batches over the columns in memory, and clauses tried before they are used.
#include "hosts/web/source.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "hosts/columns/querytokens.h"
#include "hosts/columns/where.h"
#include "hosts/common/hostfailure.h"
#include "hosts/web/flatgeobuf.h"

namespace brelmon::web {
namespace {

constexpr std::size_t kBatchRows = 16384;

template <class T>
std::span<const T> Part(const std::vector<T>& values, std::size_t from, std::size_t size) {
  return values.empty() ? std::span<const T>() : std::span<const T>(values).subspan(from, size);
}

class TableReader : public columns::IBatchReader {
 public:
  TableReader(std::shared_ptr<const ColumnTable> table, columns::RowRequest request,
              std::unique_ptr<columns::Where> where)
      : table_(std::move(table)), request_(std::move(request)), where_(std::move(where)) {}

  std::shared_ptr<columns::Batch> Next() override {
    if (next_ >= table_->RowCount()) return nullptr;
    const std::size_t rows = std::min(kBatchRows, table_->RowCount() - next_);
    auto batch = std::make_shared<columns::Batch>();
    batch->Rows = rows;
    const auto first = table_->ids.begin() + static_cast<std::ptrdiff_t>(next_);
    batch->Ids.assign(first, first + static_cast<std::ptrdiff_t>(rows));
    batch->Live.resize(rows);
    std::iota(batch->Live.begin(), batch->Live.end(), 0u);
    batch->Columns.resize(table_->fields.size());
    if (where_) {
      for (const std::size_t field : where_->Fields()) Show(*batch, field);
      where_->Keep(*batch);
      for (const std::size_t field : where_->Fields()) batch->Columns[field] = {};
    }
    for (const std::size_t field : request_.Fields) Show(*batch, field);
    if (request_.Only) columns::KeepOnly(*batch, *request_.Only);
    next_ += rows;
    return batch;
  }

 private:
  void Show(columns::Batch& batch, std::size_t field) const {
    const StoredColumn& stored = table_->columns[field];
    batch.Columns[field] = {
        Part(stored.nulls, next_, batch.Rows), Part(stored.wholes, next_, batch.Rows),
        Part(stored.reals, next_, batch.Rows), Part(stored.moments, next_, batch.Rows),
        Part(stored.texts, next_, batch.Rows)};
  }

  std::shared_ptr<const ColumnTable> table_;
  columns::RowRequest request_;
  std::unique_ptr<columns::Where> where_;
  std::size_t next_ = 0;
};

/// In the language of the source at home.
columns::Compiled CompiledFor(const SourceFacts& facts, TextView clause,
                              const std::vector<columns::Field>& fields) {
  return facts.ownSql ? columns::CompileSqliteWhere(clause, fields)
                      : columns::CompileWhere(clause, fields);
}

std::optional<Text> UnknownName(const SourceFacts& facts, const columns::ClauseNames& names,
                                const std::vector<columns::Field>& fields) {
  std::vector<Text> known;
  for (const columns::Field& field : fields) known.push_back(FromUtf8(field.Name));
  if (!facts.ownSql) known.emplace_back(u"FID");  // the record's number
  return columns::UnknownField(names, known);
}

}  // namespace

void Source::Fill(std::string bytes) {
  try {
    table_ = ReadFlatGeobuf(std::move(bytes), facts_.fields);
  } catch (const std::runtime_error& reason) {
    facts_.problem = facts_.file + ": " + reason.what();
  }
}

const ColumnTable& Source::Table() const {
  if (!table_) {
    host::Fail(failure::kFileNotFound,
               "The data can't be reached: " + facts_.path + ": " +
                   (facts_.problem.empty() ? "it is not loaded" : facts_.problem));
  }
  return *table_;
}

std::size_t Source::PlaceOf(std::int64_t id) const {
  const std::vector<std::int64_t>& ids = Table().ids;
  const auto hit = std::lower_bound(ids.begin(), ids.end(), id);
  if (hit != ids.end() && *hit == id) return static_cast<std::size_t>(hit - ids.begin());
  // A source may give its rows in another order than that of their identifiers.
  return static_cast<std::size_t>(std::find(ids.begin(), ids.end(), id) - ids.begin());
}

const std::vector<columns::Field>& Source::Fields() const {
  return table_ ? table_->fields : facts_.fields;
}

void Source::TryClause(TextView clause) {
  if (columns::IsBlank(clause)) return;
  const columns::ClauseNames names = columns::NamesIn(clause);
  std::string reason = names.fault;
  if (reason.empty()) {
    if (const auto unknown = UnknownName(facts_, names, Table().fields)) {
      reason = "there is no field \"" + ToUtf8(*unknown) + "\"";
    }
  }
  if (reason.empty()) {
    const columns::Compiled compiled = CompiledFor(facts_, clause, Table().fields);
    if (compiled.where) return;
    reason = compiled.refusal.empty() ? "this page can't evaluate it" : compiled.refusal;
  }
  host::Fail(failure::kRefused, "The query was refused: " + reason + ".");
}

std::unique_ptr<columns::IBatchReader> Source::Read(const columns::RowRequest& request) {
  Table();
  std::unique_ptr<columns::Where> where;
  if (!columns::IsBlank(request.Clause)) {
    where = CompiledFor(facts_, request.Clause, table_->fields).where;
    if (!where) host::Fail(failure::kRefused);  // the clause was tried before
  }
  return std::make_unique<TableReader>(table_, request, std::move(where));
}

}  // namespace brelmon::web
