// SPDX-License-Identifier: GPL-2.0-or-later
// Groups that a server makes are those that are made here of its rows, to twelve digits.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "hosts/columns/dissolvegroups.h"
#include "hosts/servers/servertable.h"
#include "tests/servers/server.h"

namespace brelmon::servers::test {
namespace {

using columns::DissolveGroups, columns::NumberTally;

void ExpectClose(double is, double due, double scale, const std::string& what) {
  if (!std::isfinite(due)) {
    EXPECT_TRUE(std::isnan(due) ? std::isnan(is) : is == due) << what;
  } else {
    EXPECT_LE(std::abs(is - due), scale * 1e-12) << what << ": " << is << " instead of " << due;
  }
}

struct Made {
  DissolveGroups groups;
  bool byServer;
};

Made GroupsOf(ServerTable& table, const Text& clause, bool byServer) {
  std::vector<std::size_t> indices;
  std::vector<columns::TalliedField> fields;
  for (std::size_t i = 1; i < table.Fields().size(); ++i) {
    indices.push_back(i);
    const bool number = table.Fields()[i].Type <= FieldType::Double;
    fields.push_back({i, number, number});
  }
  Made made{DissolveGroups(table.Fields(), 0, indices), false};
  columns::RowRequest request{{}, clause, nullptr, false};
  if (byServer) made.byServer = table.Group(request, 0, fields, made.groups);
  if (made.byServer) return made;
  for (std::size_t i = 0; i < table.Fields().size(); ++i) request.Fields.push_back(i);
  const auto rows = table.Read(request);
  while (const auto batch = rows->Next()) made.groups.Add(*batch);
  return made;
}

void ExpectSame(const ServerTable& table, const DissolveGroups& is, const DissolveGroups& due) {
  const auto groups = due.InOrder(), found = is.InOrder();
  ASSERT_EQ(found.size(), groups.size());
  for (std::size_t at = 0; at < groups.size(); ++at) {
    const std::size_t one = found[at], other = groups[at];
    EXPECT_EQ(is.Records(one), due.Records(other));
    for (std::size_t field = 1; field < table.Fields().size(); ++field) {
      const std::string what = table.Fields()[field].Name + " of group " + std::to_string(at);
      if (table.Fields()[field].Type == FieldType::String) {
        EXPECT_EQ(is.Texts(one, field).Minimum, due.Texts(other, field).Minimum) << what;
        EXPECT_EQ(is.Texts(one, field).Maximum, due.Texts(other, field).Maximum) << what;
        EXPECT_EQ(is.Texts(one, field).Any, due.Texts(other, field).Any) << what;
        continue;
      }
      const NumberTally &mine = is.Numbers(one, field), &right = due.Numbers(other, field);
      // What is far from zero loses digits of its spread in the tally of the rows; the same values
      // brought near, which loses none of their own, have the exact one.
      const bool far = table.Fields()[field].Name == "far";
      const double spread = due.Numbers(other, far ? field + 1 : field).Variance();
      ASSERT_EQ(mine.Count, right.Count) << what;
      if (right.Count == 0) continue;
      EXPECT_EQ(mine.Minimum, right.Minimum) << what;
      EXPECT_EQ(mine.Maximum, right.Maximum) << what;
      if (table.Fields()[field].Type > FieldType::Double) continue;
      ExpectClose(mine.Sum(), right.Sum(), std::abs(right.Sum()), "sum of " + what);
      ExpectClose(mine.Variance(), spread, spread, "variance of " + what);
    }
  }
}

/// Values that lose digits where they are simply added up. `server` says whether the server's own
/// figures serve.
TEST(Grouping, AgreesWithTheRowsToTwelveDigits) {
  const struct {
    const char *columns, *clause;
    bool server;
  } rows[] = {
      {"(i % 7)::text AS key, (i * 7919 % 100) / 10.0::float8 AS tenths", "", true},
      {"i % 7 AS key, 0.1::float8 AS tenth, 0.1::real AS single, i / 3.0 AS exact", "", true},
      {"i % 1000 AS key, 1e9 + i / 7.0::float8 AS far, (1e9 + i / 7.0::float8) - 1e9 AS near", "",
       true},
      {"i % 3 AS key, (i % 2) * 2e5 - 1e5 + 1e-4 * (i % 11) AS cancels", "", true},
      {"i % 3 AS key, 1e-12 * (i % 113) AS tiny, 1e100 * (i % 113) AS large", "", true},
      {"i % 3 AS key, 1e200 * (i % 113) AS huge", "", false},
      {"i % 5 AS key, CASE WHEN i % 11 = 0 THEN NULL WHEN i % 13 = 0 THEN -9999 ELSE i % 97 END "
       "AS holes, i % 2 = 0 AS truth, (i % 300)::int2 AS small, i::int8 * 1000003 AS big",
       "\"small\" < 250", true},
      {"CASE i % 4 WHEN 0 THEN NULL WHEN 1 THEN '' WHEN 2 THEN '\u00E4' ELSE 'Z' END AS key, "
       "chr(65 + i % 50) || i % 1000 AS name, date '2020-01-01' + i % 400 AS day, "
       "timestamp '1990-01-01 00:00:30.5' + i * interval '7.3 s' AS moment",
       "", true},
      {"i % 4 AS key, timestamp '1899-12-28 00:00:30.5' + i * interval '7.3 s' AS moment", "",
       false},
      {"(i % 3) / 2.0::float8 AS key, CASE i WHEN 77 THEN 'NaN'::float8 ELSE i END AS broken", "",
       false},
      {"i % 3 AS key, CASE i WHEN 77 THEN 'infinity'::float8 ELSE i END AS broken", "", false},
      {"timestamp '2026-11-16 14:15:07' + i % 10 * interval '0.2 s' AS key, i AS value", "", true},
  };
  ::setenv("PGSERVICEFILE", BRELMON_SERVERS "/pg_service.conf", 1);
  for (const auto& row : rows) {
    Psql("faulty", "DROP TABLE IF EXISTS grouped; CREATE TABLE grouped AS SELECT " +
                       std::string(row.columns) + " FROM generate_series(1, 100000) i");
    Address address;
    address.Service = "brelmon_faulty";
    address.User = "owner";
    address.Table = "grouped";
    ServerTable table(address);
    const Made is = GroupsOf(table, FromUtf8(row.clause), true);
    EXPECT_EQ(is.byServer, row.server) << row.columns;
    ExpectSame(table, is.groups, GroupsOf(table, FromUtf8(row.clause), false).groups);
    if (HasFailure()) FAIL() << row.columns;
  }
}

}  // namespace
}  // namespace brelmon::servers::test
