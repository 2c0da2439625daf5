// SPDX-License-Identifier: GPL-2.0-or-later
// Three looks at the catalogue: the table, its columns, its key.
#include "hosts/servers/tablefacts.h"

#include <algorithm>
#include <cstdlib>

#include "hosts/common/hostfailure.h"
#include "hosts/servers/connection.h"
#include "hosts/servers/querytext.h"

namespace brelmon::servers {
namespace {

using columns::Field, columns::Storage;

/// A page and a place in it.
constexpr const char* kPlaceOfRow =
    "((ctid::text::point)[0]::int8 << 16 | (ctid::text::point)[1]::int8)";

[[noreturn]] void NotOpened(const std::string& reason) {
  host::Fail(failure::kFileNotFound, reason);
}

struct TypeFacts {
  const char* name;
  FieldType type;
  Storage stored;
  Wire wire;
  const char* cast;  // behind the column
};
constexpr TypeFacts kTypes[] = {
    {"bool", FieldType::SmallInteger, Storage::Whole, Wire::Truth, ""},
    {"int2", FieldType::SmallInteger, Storage::Whole, Wire::Whole16, ""},
    {"int4", FieldType::Integer, Storage::Whole, Wire::Whole32, ""},
    {"int8", FieldType::Double, Storage::Whole, Wire::Whole64, ""},
    {"oid", FieldType::Double, Storage::Whole, Wire::Whole64, "::int8"},
    {"float4", FieldType::Single, Storage::Real, Wire::Real32, ""},
    {"float8", FieldType::Double, Storage::Real, Wire::Real64, ""},
    {"numeric", FieldType::Double, Storage::Real, Wire::Real64, "::float8"},
    {"money", FieldType::Double, Storage::Real, Wire::Real64, "::numeric::float8"},
    {"date", FieldType::Date, Storage::Moment, Wire::Day, ""},
    {"timestamp", FieldType::Date, Storage::Moment, Wire::Moment, ""},
    {"timestamptz", FieldType::Date, Storage::Moment, Wire::Moment, "::timestamp"},
    {"text", FieldType::String, Storage::Text, Wire::Text, ""},
    {"varchar", FieldType::String, Storage::Text, Wire::Text, ""},
    {"bpchar", FieldType::String, Storage::Text, Wire::Text, "::text"},
    {"name", FieldType::String, Storage::Text, Wire::Text, "::text"},
    {"citext", FieldType::String, Storage::Text, Wire::Text, "::text"},
    {"bytea", FieldType::Blob, Storage::Other, Wire::Nothing, ""},
};
constexpr TypeFacts kOther = {"", FieldType::String, Storage::Other, Wire::Text, "::text"};

void AddColumn(const std::string& name, const std::string& type, bool plainTexts,
               TableFacts& facts) {
  const auto* known = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [&](const TypeFacts& each) { return type == each.name; });
  const TypeFacts& is = known == std::end(kTypes) ? kOther : *known;
  Field field{name, is.type, is.stored};
  field.Logical = is.wire == Wire::Truth;
  field.TimeOfDay = is.wire != Wire::Day;
  ColumnFacts column;
  column.Travels = is.wire;
  column.Select = QuotedName(name) + is.cast;
  if (is.wire == Wire::Nothing) {
    column.Select = "(CASE WHEN " + QuotedName(name) + " IS NOT NULL THEN '' END)";
  }
  // Cast texts take on the database's own collation, in which only equal bytes are equal.
  const bool odd = is.wire == Wire::Text && !plainTexts;
  column.GroupBy = odd ? "(" + column.Select + ") COLLATE \"C\"" : column.Select;
  column.IsExact = is.stored == Storage::Whole && is.wire != Wire::Truth;
  if (is.wire == Wire::Truth) column.GroupBy = column.Select;
  facts.Fields.push_back(field);
  facts.Columns.push_back(column);
}

void ReadColumns(Transaction& server, const std::string& table, const Address& address,
                 TableFacts& facts) {
  const Answer columns = server.Ask(
      "SELECT a.attname, b.typname, coalesce(c.collisdeterministic, true) "
      "FROM pg_catalog.pg_attribute a JOIN pg_catalog.pg_type t ON t.oid = a.atttypid "
      "JOIN pg_catalog.pg_type b ON b.oid = CASE t.typtype WHEN 'd' THEN t.typbasetype "
      "ELSE t.oid END LEFT JOIN pg_catalog.pg_collation c ON c.oid = a.attcollation "
      "WHERE a.attrelid = $1::oid AND a.attnum > 0 AND NOT a.attisdropped ORDER BY a.attnum",
      {table});
  for (int row = 0; row < columns.Rows(); ++row) {
    const std::string name(columns.At(row, 0)), type(columns.At(row, 1));
    if (type == "geometry" || type == "geography") {
      if (name != address.GeometryColumn) continue;
      facts.HasGeometry = true;
      facts.IsGeography = type == "geography";
      facts.Geometry = QuotedName(name);
    } else {
      AddColumn(name, type, columns.IsTrue(row, 2), facts);
    }
  }
  if (!address.GeometryColumn.empty() && !facts.HasGeometry) {
    NotOpened("there is no column \"" + address.GeometryColumn + "\" of shapes in its table");
  }
}

/// One column of whole numbers that no two rows share.
std::string KeyOf(Transaction& server, const std::string& table) {
  const Answer key = server.Ask(
      "SELECT a.attname FROM pg_catalog.pg_index i JOIN pg_catalog.pg_attribute a "
      "ON a.attrelid = i.indrelid AND a.attnum = i.indkey[0] "
      "WHERE i.indrelid = $1::oid AND i.indisunique AND i.indnkeyatts = 1 AND i.indpred IS NULL "
      "AND a.attnotnull AND a.atttypid IN ('int2'::regtype, 'int4'::regtype, 'int8'::regtype) "
      "ORDER BY i.indisprimary DESC, a.attnum LIMIT 1",
      {table});
  return key.Rows() == 0 ? "" : std::string(key.At(0, 0));
}

void FindIds(Transaction& server, const std::string& table, char kind, const Address& address,
             TableFacts& facts) {
  std::string key = KeyOf(server, table);
  if (!address.KeyColumn.empty()) {
    const auto named =
        std::find_if(facts.Fields.begin(), facts.Fields.end(),
                     [&](const Field& field) { return field.Name == address.KeyColumn; });
    if (named == facts.Fields.end()) {
      NotOpened("there is no column \"" + address.KeyColumn + "\", its key, in its table");
    }
    if (named->Stored == Storage::Whole && !named->Logical) key = address.KeyColumn;
  }
  for (Field& field : facts.Fields) {
    if (field.Name != key) continue;
    field.IsId = true;
    field.Type = FieldType::OID;
  }
  facts.Id = key.empty() ? kPlaceOfRow : QuotedName(key) + "::int8";
  if (key.empty() && kind != 'r' && kind != 'm') {
    NotOpened("its rows have no key of whole numbers; name one in the layer's settings");
  }
}

/// Where the rights on the whole are those on each part, the parts can be asked one by one.
void FindLeaves(Transaction& server, const std::string& table, TableFacts& facts) {
  const Answer leaves = server.Ask(
      "SELECT n.nspname, c.relname, has_table_privilege(c.oid, 'SELECT') AND NOT c.relrowsecurity "
      "AND has_schema_privilege(n.oid, 'USAGE') AND NOT (SELECT bool_or(above.relrowsecurity) "
      "FROM pg_catalog.pg_partition_ancestors(c.oid) AS a(oid) "
      "JOIN pg_catalog.pg_class above ON above.oid = a.oid) "
      "FROM pg_catalog.pg_partition_tree($1::oid) AS p "
      "JOIN pg_catalog.pg_class c ON c.oid = p.relid "
      "JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace WHERE p.isleaf ORDER BY c.oid",
      {table});
  for (int row = 0; row < leaves.Rows(); ++row) {
    if (!leaves.IsTrue(row, 2)) {
      facts.Leaves.clear();
      return;
    }
    facts.Leaves.push_back(QuotedName(std::string(leaves.At(row, 0))) + "." +
                           QuotedName(std::string(leaves.At(row, 1))));
  }
}

void FindReferenceSystem(Transaction& server, const std::string& table, const Address& address,
                         TableFacts& facts) {
  facts.Srid = address.Srid;
  if (!facts.HasGeometry || facts.Srid != 0) return;
  const Answer typed =
      server.Ask("SELECT " + facts.PostgisSchema +
                     ".postgis_typmod_srid(atttypmod) "
                     "FROM pg_catalog.pg_attribute WHERE attrelid = $1::oid AND attname = $2",
                 {table, address.GeometryColumn});
  facts.Srid = std::atoi(std::string(typed.At(0, 0)).c_str());
  if (facts.Srid != 0) return;
  const Answer first =
      server.Ask("SELECT " + facts.PostgisSchema + ".ST_SRID(" + facts.Geometry + ") FROM " +
                 facts.From + " WHERE " + facts.Geometry + " IS NOT NULL LIMIT 1");
  if (first.Rows() > 0) facts.Srid = std::atoi(std::string(first.At(0, 0)).c_str());
}

}  // namespace

TableFacts ReadFacts(Transaction& server, const Address& address) {
  std::string name = QuotedName(address.Table);
  if (!address.Schema.empty()) name = QuotedName(address.Schema) + "." + name;
  const Answer table = server.Ask(
      "SELECT c.oid, c.relkind, n.nspname, c.relname, "
      "has_any_column_privilege(c.oid, 'SELECT') AND has_schema_privilege(n.oid, 'USAGE'), "
      "pg_catalog.getdatabaseencoding() IN ('UTF8', 'LATIN1', 'SQL_ASCII'), "
      "(SELECT x.nspname FROM pg_catalog.pg_extension e JOIN pg_catalog.pg_namespace x "
      "ON x.oid = e.extnamespace WHERE e.extname = 'postgis') "
      "FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace "
      "WHERE c.oid = to_regclass($1)",
      {name});
  const std::string kind(table.Rows() == 0 ? "" : table.At(0, 1));
  if (kind.empty() || std::string("rmvpf").find(kind) == std::string::npos) {
    NotOpened("there is no table " + name + " in " + address.Shown());
  }
  if (!table.IsTrue(0, 4)) NotOpened("permission denied for the table " + name);
  TableFacts facts;
  facts.Schema = table.At(0, 2);
  facts.Table = table.At(0, 3);
  facts.From = QuotedName(facts.Schema) + "." + QuotedName(facts.Table);
  facts.TextsByCode = table.IsTrue(0, 5);
  facts.PostgisSchema = QuotedName(std::string(table.At(0, 6)));
  const std::string oid(table.At(0, 0));
  ReadColumns(server, oid, address, facts);
  FindIds(server, oid, kind[0], address, facts);
  if (kind == "p") FindLeaves(server, oid, facts);
  FindReferenceSystem(server, oid, address, facts);
  return facts;
}

std::string AmongIds(const TableFacts& facts, const columns::RowIds& ids) {
  const bool places = facts.Id == kPlaceOfRow;
  std::string list;
  for (const std::int64_t id : ids) {
    if (!list.empty()) list += ',';
    list += places ? "\"(" + std::to_string(id >> 16) + "," + std::to_string(id & 0xFFFF) + ")\""
                   : std::to_string(id);
  }
  const std::string key = places ? "ctid" : facts.Id.substr(0, facts.Id.size() - 6);
  return key + " = ANY ('{" + list + "}'::" + (places ? "tid[])" : "int8[])");
}

}  // namespace brelmon::servers
