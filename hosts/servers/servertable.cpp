// SPDX-License-Identifier: GPL-2.0-or-later
// Each question as one statement of a read-only transaction.
#include "hosts/servers/servertable.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "hosts/columns/querytokens.h"
#include "hosts/common/hostfailure.h"
#include "hosts/servers/copyreader.h"
#include "hosts/servers/grouping.h"
#include "hosts/servers/querytext.h"

namespace brelmon::servers {
namespace {

using columns::Field, columns::RowIds, columns::RowRequest;

/// Identifiers that a statement can bear; of more the rows are picked out here.
constexpr std::size_t kMostIdsTold = 100'000;
/// How long a count is good for the same click, which asks it several times.
constexpr std::chrono::milliseconds kCountHolds{1000};
/// Rows in the order in which they lie.
const std::vector<std::string> kInOrder = {"max_parallel_workers_per_gather = 0"};

[[noreturn]] void Refuse(const std::string& reason) {
  host::Fail(failure::kRefused, "The query was refused: " + reason + ".");
}

template <class Number>
Number NumberIn(std::string_view text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string Hexadecimal(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    text += kDigits[static_cast<unsigned char>(byte) >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string Columns(const TableFacts& facts, const std::vector<std::size_t>& fields, bool ids) {
  std::string list;
  for (const std::size_t field : fields) {
    list += (list.empty() ? "" : ", ") + facts.Columns[field].Select;
  }
  if (ids) list += (list.empty() ? "" : ", ") + facts.Id;
  return list;
}

TableFacts Look(const Address& address) {
  if (!address.Problem.empty()) host::Fail(failure::kFileNotFound, address.Problem);
  Transaction server(address);
  return ReadFacts(server, address);
}

}  // namespace

ServerTable::ServerTable(Address address)
    : address_(std::move(address)), facts_(std::make_shared<TableFacts>(Look(address_))) {}

void ServerTable::TryClause(TextView clause) {
  if (columns::IsBlank(clause) || clause == tried_) return;
  if (clause.find(u'\0') != TextView::npos) Refuse("it holds a character that no query can hold");
  const std::string odd = OddSpelling(clause);
  if (!odd.empty()) Refuse(odd);
  const columns::ClauseNames names = columns::NamesIn(clause);
  if (!names.fault.empty()) Refuse(names.fault);
  std::vector<Text> known;
  for (const Field& field : Fields()) known.push_back(FromUtf8(field.Name));
  if (const auto unknown = columns::UnknownField(names, known)) {
    Refuse("there is no field \"" + ToUtf8(*unknown) + "\"");
  }
  Transaction server(address_);
  // Reads and plans the clause.
  server.Ask("EXPLAIN (COSTS off) SELECT 1 FROM " + facts_->From + WhereOf(Text(clause)), {},
             Blame::QueryText);
  // Reckons it for one row, whichever comes first, as one that few rows fulfil would cost a look at
  // all of them. Where even that row takes too long, the clause isn't to blame.
  try {
    server.Ask("SELECT count(*) FILTER (WHERE " + ToUtf8(clause) + ") FROM (SELECT * FROM " +
                   facts_->From + " LIMIT 1) AS " + QuotedName(facts_->Table),
               {}, Blame::QueryText);
  } catch (const Failure& failure) {
    // Nor where the user may read some of the columns alone, of which the plan has told already.
    const bool spared =
        failure.Number == failure::kDeviceIo || failure.Number == failure::kPermissionDenied;
    if (!spared) throw;
  }
  tried_ = clause;
}

std::string ServerTable::WhereOf(const Text& clause, const std::string& more) const {
  std::string where;
  if (!columns::IsBlank(clause)) where = " WHERE (" + ToUtf8(clause) + ")";
  if (!more.empty()) where += (where.empty() ? " WHERE " : " AND ") + more;
  return where;
}

std::string ServerTable::WhereOf(const RowRequest& request, bool& pushed) const {
  pushed = !request.Only || request.Only->size() <= kMostIdsTold;
  return WhereOf(request.Clause,
                 request.Only && pushed ? AmongIds(*facts_, *request.Only) : std::string());
}

std::string ServerTable::OverParts(const std::string& select, const std::string& where,
                                   const std::string& behind, TextView clause) const {
  const auto one = [&](const std::string& from) {
    return "SELECT " + select + " FROM " + from + where + behind;
  };
  // Rows have places only within their part.
  if (facts_->Leaves.empty() || NamesTables(clause)) return one(facts_->From);
  std::string all;
  for (const std::string& leaf : facts_->Leaves)
    all += (all.empty() ? "" : " UNION ALL ") + one(leaf);
  return all;
}

std::unique_ptr<columns::IBatchReader> ServerTable::Read(const RowRequest& request) {
  bool pushed = true;
  const std::string where = WhereOf(request, pushed);
  const bool withIds = request.WithIds || !pushed || request.Fields.empty();
  auto server = std::make_unique<Transaction>(address_, kInOrder);
  server->StartCopy(
      "SELECT " + Columns(*facts_, request.Fields, withIds) + " FROM " + facts_->From + where,
      columns::IsBlank(request.Clause) ? Blame::Table : Blame::QueryValues);
  auto rows = ReadCopy(std::move(server), facts_, request.Fields, withIds);
  if (pushed) return rows;
  return columns::Thinned(std::move(rows), [only = request.Only](columns::Batch& batch) {
    columns::KeepOnly(batch, *only);
  });
}

std::unique_ptr<columns::IBatchReader> ServerTable::ReadValues(const RowRequest& request) {
  bool pushed = true;
  const std::string where = WhereOf(request, pushed);
  const std::size_t field = request.Fields.empty() ? Fields().size() : request.Fields[0];
  const bool one = request.Fields.size() == 1 && facts_->Columns[field].Travels != Wire::Nothing;
  if (!one || !pushed) return Read(request);
  const ColumnFacts& column = facts_->Columns[field];
  auto server = std::make_unique<Transaction>(address_);
  server->StartCopy(OverParts(column.GroupBy, where, " GROUP BY 1", request.Clause),
                    columns::IsBlank(request.Clause) ? Blame::Table : Blame::QueryValues);
  return ReadCopy(std::move(server), facts_, request.Fields, false);
}

std::int64_t ServerTable::CountRows(const Text& clause) {
  const auto now = std::chrono::steady_clock::now();
  if (counted_ && counted_->clause == clause && now - counted_->at < kCountHolds) {
    return counted_->rows;
  }
  Transaction server(address_);
  const Answer count =
      server.Ask("SELECT sum(n)::int8 FROM (" +
                     OverParts("count(*) AS n", WhereOf(clause), "", clause) + ") AS parts",
                 {}, columns::IsBlank(clause) ? Blame::Table : Blame::QueryText);
  const auto rows = NumberIn<std::int64_t>(count.At(0, 0));
  counted_ = Counted{clause, rows, std::chrono::steady_clock::now()};
  return rows;
}

RowIds ServerTable::IdsOfRows(const Text& clause, bool justOne) {
  return Ids(WhereOf(clause), justOne, !columns::IsBlank(clause));
}

RowIds ServerTable::Ids(const std::string& where, bool justOne, bool asked) {
  Transaction server(address_);
  server.StartCopy("SELECT " + facts_->Id + " FROM " + facts_->From + where +
                       (justOne ? " ORDER BY 1 LIMIT 1" : ""),
                   asked ? Blame::QueryText : Blame::Table);
  CopyStream rows(server);
  RowIds ids;
  while (rows.NextRow(1)) {
    const auto id = rows.NextValue();
    if (!id) host::Fail(failure::kDeviceIo, "A row has no value in the key of its table.");
    ids.push_back(WholeOf(Wire::Whole64, *id));
  }
  if (!std::is_sorted(ids.begin(), ids.end())) std::sort(ids.begin(), ids.end());
  return ids;
}

RowIds ServerTable::IdsTouching(const Text& clause, std::string_view wkb, bool justOne) {
  const std::string& postgis = facts_->PostgisSchema;
  const std::string shape = postgis + ".ST_GeomFromWKB('\\x" + Hexadecimal(wkb) + "'::bytea, " +
                            std::to_string(facts_->Srid) + ")";
  const std::string own =
      facts_->IsGeography ? facts_->Geometry + "::" + postgis + ".geometry" : facts_->Geometry;
  return Ids(WhereOf(clause, postgis + ".ST_Intersects(" + own + ", " + shape + ")"), justOne,
             !columns::IsBlank(clause));
}

bool ServerTable::Group(const RowRequest& request, std::size_t key,
                        const std::vector<columns::TalliedField>& fields,
                        columns::DissolveGroups& groups) {
  bool pushed = true;
  const std::string where = WhereOf(request, pushed);
  if (!pushed) return false;
  const Blame blame = columns::IsBlank(request.Clause) ? Blame::Table : Blame::QueryValues;
  return GroupOnServer(
      address_, *facts_, key, fields, blame,
      [&](const std::string& select) {
        return OverParts(select, where, " GROUP BY 1", request.Clause);
      },
      groups);
}

bool ServerTable::Extent(Box& box) {
  if (!facts_->HasGeometry) return false;
  Transaction server(address_);
  const std::string &postgis = facts_->PostgisSchema, corner = facts_->PostgisSchema + ".ST_";
  const std::string corners = corner + "XMin(b), " + corner + "YMin(b), " + corner + "XMax(b), " +
                              corner + "YMax(b) FROM (SELECT ";
  const bool estimated =
      server
          .Ask(
              "SELECT 1 FROM pg_catalog.pg_stats WHERE schemaname = $1 AND tablename = $2 AND "
              "attname = $3",
              {facts_->Schema, facts_->Table, address_.GeometryColumn})
          .Rows() > 0;
  const Answer found =
      estimated
          ? server.Ask("SELECT " + corners + corner + "EstimatedExtent($1, $2, $3) AS b) AS e",
                       {facts_->Schema, facts_->Table, address_.GeometryColumn})
          : server.Ask("SELECT " + corners + corner + "Extent(" + facts_->Geometry +
                       "::" + postgis + ".geometry) AS b FROM " + facts_->From + ") AS e");
  if (found.Rows() == 0 || found.IsNull(0, 0)) return false;
  box = {NumberIn<double>(found.At(0, 0)), NumberIn<double>(found.At(0, 1)),
         NumberIn<double>(found.At(0, 2)), NumberIn<double>(found.At(0, 3))};
  return true;
}

std::string ServerTable::ReferenceSystem() {
  if (!facts_->HasGeometry || facts_->Srid == 0) return {};
  Transaction server(address_);
  const Answer known = server.Ask("SELECT auth_name, auth_srid, srtext FROM " +
                                      facts_->PostgisSchema + ".spatial_ref_sys WHERE srid = $1",
                                  {std::to_string(facts_->Srid)});
  if (known.Rows() == 0) return {};
  const std::string authority(known.At(0, 0));
  if (authority == "EPSG") return authority + ":" + std::string(known.At(0, 1));
  return std::string(known.At(0, 2));
}

}  // namespace brelmon::servers
