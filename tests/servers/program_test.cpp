// SPDX-License-Identifier: GPL-2.0-or-later
// Tables on servers through the program: what it shows of each type, and the five jobs.
#include <gtest/gtest.h>

#include <regex>

#include "tests/cli/program.h"
#include "tests/servers/server.h"

namespace brelmon::servers::test {
namespace {

using cli::test::Brelmon, cli::test::Contains;

TEST(Program, ShowsFieldsOfEveryTypeAndTheirValues) {
  const TempFolder folder;
  WriteModule(folder, {TableOn("alone", "types")});
  const struct {
    const char *field, *type, *values;
  } rows[] = {
      {"id", "object id", "1\n2\n3\n"},
      {"truth", "small integer", "0\n1\n"},
      {"small", "small integer", "-32768\n32767\n"},
      {"whole", "integer", "-2147483648\n2147483647\n"},
      {"big", "double", "-9.00719925474099E+15\n9.00719925474099E+15\n"},
      {"single", "single", "-Infinity\n0.100000001490116\n"},
      {"exact", "double", "-0.001\n123456789.125\n"},
      {"fixed", "text", "'ab'\n'abcdef'\n"},
      {"free", "text", "''\n'a\nb'\n"},
      {"short", "text", "''\n'\u00F1and\u00FA'\n"},
      {"day", "date", "1/1/0100\n12/31/9999\n"},
      {"clock", "text", "'00:00:00'\n'23:59:00'\n"},
      {"list", "text", "'{1,2}'\n'{}'\n"},
      {"say \"hi\" now", "text", "''\n'x'\n"},
      {"code", "text", "'a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11'\n"},
  };
  const std::string fields = Brelmon({folder.Path(), "fields", "types"}).out;
  for (const auto& row : rows) {
    const auto at = fields.find(std::string("  ") + row.field + "  ");
    ASSERT_NE(at, std::string::npos) << row.field << "\n" << fields;
    const std::string line = fields.substr(at, fields.find('\n', at) - at);
    EXPECT_TRUE(Contains(line, row.type)) << line;
    const auto said = Brelmon({folder.Path(), "values", "types", row.field});
    EXPECT_EQ(said.out, row.values) << row.field << said.err;
  }
  EXPECT_TRUE(Contains(fields, "bytes"));
  EXPECT_TRUE(
      Contains(Brelmon({folder.Path(), "values", "types", "moment"}).out, "11/16/2026 2:15:08 PM"));
}

/// A table's rows as printed, behind the line that names the file. Deviations that are put together
/// from those of parts may differ in their last digits.
std::string ToTwelveDigits(const std::string& out) {
  static const std::regex longer("(\\d{2}\\.\\d{10})\\d+");
  return std::regex_replace(out.substr(out.find('\n')), longer, "$1");
}

TEST(Program, WorksOnTablesViewsAndPartitionsAlike) {
  const TempFolder folder;
  WriteModule(folder,
              {TableOn("alone", "many"), TableOn("alone", "manyparts", "key='id'"),
               TableOn("alone", "seen", "key='id'", "\"MAG\" > 50"), TableOn("alone", "keyless")});
  const auto contents = Brelmon({folder.Path(), "contents"});
  EXPECT_EQ(contents.err, "");
  const std::string query = "\"MAG\" > 50 AND \"NAME\" LIKE 'row 1%'";
  for (const char* table : {"many", "manyparts"}) {
    EXPECT_EQ(Brelmon({folder.Path(), "query", table, query, "--new", "--filter"}).out,
              "Number of features displayed = 11,000\n")
        << table;
    EXPECT_EQ(Brelmon({folder.Path(), "values", table, "NAME"}).out.size(), 890u) << table;
    const TempFolder made;
    const auto said =
        Brelmon({folder.Path(), "summarize", table, "NAME", "--stat", "Sum:MAG", "--stat",
                 "Standard Deviation:MAG", "--output", made.Path("made.dbf")});
    EXPECT_TRUE(Contains(said.out, "row 17        2000    94600  28.729996629884")) << said.err;
    if (table == std::string("many")) continue;
    const auto whole =
        Brelmon({folder.Path(), "summarize", "many", "NAME", "--stat", "Sum:MAG", "--stat",
                 "Standard Deviation:MAG", "--output", made.Path("many.dbf")});
    EXPECT_EQ(ToTwelveDigits(said.out), ToTwelveDigits(whole.out));
  }
  // A view's rows by its key, and a table without one by where its rows lie.
  EXPECT_EQ(Brelmon({folder.Path()},
                    "query seen '\"NAME\" = '\\''row 7'\\''' --new --filter\n"
                    "query keyless '\"NAME\" = '\\''row 7'\\''' --new --filter\n")
                .out,
            "Number of features displayed = 10\n"
            "Number of features displayed = 10\n");
  const auto unnamed = Brelmon({folder.Path(), "fields", "seen"});
  EXPECT_EQ(unnamed.status, 0) << unnamed.err;
}

/// A layer with shapes: selections, statistics of the selected, and what is ignored.
TEST(Program, CountsSelectsAndReports) {
  const TempFolder folder;
  auto layer = TableOn("alone", "rows");
  layer.source =
      "service='brelmon_alone' user='owner' key='id' srid=4326 type=Point "
      "table=\"public\".\"rows\" (geom) sql=";
  layer.geometry = "Point";
  WriteModule(folder, {layer});
  const auto said = Brelmon({folder.Path()},
                            "query rows '\"VAL\" >= 0' --new\n"
                            "statistics rows VAL --selected --decimals 3\n"
                            "statistics rows VAL --all --ignore -9999\n"
                            "pick rows\ngraphic 'POLYGON ((0 0, 3.5 0, 3.5 2, 0 2, 0 0))'\n"
                            "click cmdSelByGraphic\ncontents\n"
                            "statistics rows VAL --selected\n");
  EXPECT_TRUE(Contains(said.out, "Number of features highlighted = 5\n")) << said.err;
  EXPECT_TRUE(Contains(said.out, "  Total: 56.25\n")) << said.out;
  EXPECT_TRUE(Contains(said.out, "  Variance: 217.6875\n")) << said.out;
  EXPECT_TRUE(Contains(said.out, "  Total: 55.75\n")) << said.out;
  // What a session ignores it ignores from then on: of the three shapes' values -9999.
  EXPECT_TRUE(Contains(said.out, "  Total: 21.75\n")) << said.out;
  EXPECT_EQ(said.err, "");
  const auto nulls = Brelmon({folder.Path(), "statistics", "rows", "VAL"});
  EXPECT_TRUE(Contains(nulls.err, "94")) << nulls.err;
}

TEST(Program, TellsWhyATableIsNotOpened) {
  const TempFolder folder;
  auto gone = TableOn("alone", "gone"), query = TableOn("alone", "query"),
       kept = TableOn("alone", "kept", "authcfg=abc1234"), shapeless = TableOn("alone", "rows");
  query.source = "service='brelmon_alone' table=\"(SELECT 1 AS id)\" key='id'";
  shapeless.source = "service='brelmon_alone' user='owner' table=\"rows\" (shape)";
  auto unknown = TableOn("nosuch", "unknown"), keyless = TableOn("alone", "seen");
  WriteModule(folder, {gone, query, kept, shapeless, unknown, keyless});
  const auto said = Brelmon({folder.Path(), "contents"});
  for (const char* line :
       {"gone: not opened: there is no table \"public\".\"gone\" in the database of service "
        "brelmon_alone\n",
        "query: not opened: it is a query, not a table\n",
        "kept: not opened: its user and password are kept in QGIS; put them into ~/.pgpass\n",
        "rows: not opened: there is no column \"shape\" of shapes in its table\n",
        "unknown: not opened: definition of service \"brelmon_nosuch\" not found\n",
        "seen: not opened: its rows have no key of whole numbers; name one in the layer's "
        "settings\n"}) {
    EXPECT_TRUE(Contains(said.err, line)) << line << said.err;
  }
}

}  // namespace
}  // namespace brelmon::servers::test
