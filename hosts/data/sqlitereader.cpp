// SPDX-License-Identifier: GPL-2.0-or-later
// One statement over the identifiers and the columns that are asked for.
#include "hosts/data/sqlitereader.h"

#include <algorithm>

#include "hosts/columns/querytokens.h"
#include "hosts/common/hostfailure.h"
#include "hosts/data/rowfiller.h"
#include "hosts/data/sqlitedatabase.h"

namespace brelmon::data {
namespace {

using columns::ColumnBuffer, columns::Storage;

std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  for (const char unit : name) quoted += unit == '"' ? "\"\"" : std::string(1, unit);
  return quoted + "\"";
}

/// Whether SQLite keeps the value as it is shown. Dates are texts there, read by GDAL's rules.
bool IsKeptSo(const VectorSource& source, std::size_t field) {
  const Storage stored = source.Fields()[field].Stored;
  return stored == Storage::Whole || stored == Storage::Real || stored == Storage::Text;
}

/// The rows, identifiers first; empty where the source isn't such a table.
std::string StatementFor(VectorSource& source, const std::vector<std::size_t>& fields,
                         const Text& clause) {
  const VectorSource::Handle layer = source.Open();
  const std::string id = layer->GetFIDColumn();
  if (id.empty()) return {};
  std::string sql = "SELECT " + Quoted(id);
  for (const std::size_t field : fields) sql += ", " + Quoted(source.Fields()[field].Name);
  sql += " FROM " + Quoted(layer->GetName());
  if (!columns::IsBlank(clause)) sql += " WHERE (" + ToUtf8(clause) + ")";
  return sql;
}

class SqliteReader : public RowFiller {
 public:
  SqliteReader(std::shared_ptr<VectorSource> source, std::vector<std::size_t> fields,
               Database database, Statement rows)
      : RowFiller(std::move(source), std::move(fields)),
        database_(std::move(database)),
        rows_(std::move(rows)),
        places_(source_->Fields().size()) {
    int place = 0;
    for (const std::size_t field : fields_) places_[field] = ++place;
  }

 private:
  std::optional<std::int64_t> NextRow() override {
    const int status = sqlite3_step(rows_.get());
    if (status == SQLITE_ROW) return sqlite3_column_int64(rows_.get(), 0);
    if (status == SQLITE_DONE) return {};
    host::Fail(failure::kDeviceIo,
               source_->Address().path + " can't be read on: " + sqlite3_errmsg(database_.get()));
  }

  void Take(std::size_t field, ColumnBuffer& column, std::size_t row,
            columns::TextRoom& texts) override {
    sqlite3_stmt* const rows = rows_.get();
    const int place = places_[field];
    if (sqlite3_column_type(rows, place) == SQLITE_NULL) return column.SetNull(row);
    switch (source_->Fields()[field].Stored) {
      case Storage::Whole:
        column.Wholes[row] = source_->PlaceOf(field).type == OFTInteger
                                 ? sqlite3_column_int(rows, place)
                                 : sqlite3_column_int64(rows, place);
        return;
      case Storage::Real:
        column.Reals[row] = sqlite3_column_double(rows, place);
        return;
      default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(rows, place));
        column.Texts[row] = texts.Put(text ? text : "");
      }
    }
  }

  Database database_;
  Statement rows_;  // ends before its database
  std::vector<int> places_;
};

}  // namespace

std::unique_ptr<columns::IBatchReader> ReadSqlite(const std::shared_ptr<VectorSource>& source,
                                                  const std::vector<std::size_t>& fields,
                                                  const Text& clause) {
  if (source->Kind() != u"GeoPackage") return nullptr;
  const auto kept = [&](std::size_t field) { return IsKeptSo(*source, field); };
  if (!std::all_of(fields.begin(), fields.end(), kept)) return nullptr;
  const std::string sql = StatementFor(*source, fields, clause);
  Database database = sql.empty() ? nullptr : OpenDatabase(source->Address().path);
  if (!database) return nullptr;
  sqlite3_stmt* prepared = nullptr;
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // A name that no column bears is none, not a text.
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  const int status = sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &prepared, nullptr);
  Statement rows(prepared);
  if (status != SQLITE_OK) return nullptr;
  return std::make_unique<SqliteReader>(source, fields, std::move(database), std::move(rows));
}

}  // namespace brelmon::data
