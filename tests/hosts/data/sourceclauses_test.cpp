// SPDX-License-Identifier: GPL-2.0-or-later
// Random clauses over each kind of source: the rows that a source finds are those of GDAL's filter.
#include <gtest/gtest.h>

#include <random>

#include "hosts/data/vectorsource.h"

namespace brelmon::data {
namespace {

struct Kind {
  const char *file, *layer, *provider;
};
constexpr Kind kKinds[] = {{"points.shp", "points", "ogr"},
                           {"table.dbf", "table", "ogr"},
                           {"rows.geojson", "rows", "ogr"},
                           {"rows.gpkg|layername=rows", "rows", "ogr"},
                           {"file:rows.csv?type=csv&detectTypes=yes", "rows", "delimitedtext"}};

class Clauses {
 public:
  explicit Clauses(unsigned seed) : random_(seed) {}
  std::string Next(int depth = 2) {
    const unsigned roll = Roll(8);
    if (depth > 0 && roll == 0) return "(" + Next(depth - 1) + ") AND (" + Next(depth - 1) + ")";
    if (depth > 0 && roll == 1) return "(" + Next(depth - 1) + ") OR (" + Next(depth - 1) + ")";
    if (depth > 0 && roll == 2) return "NOT (" + Next(depth - 1) + ")";
    return Test();
  }

 private:
  unsigned Roll(unsigned sides) { return static_cast<unsigned>(random_() % sides); }
  std::string Any(std::initializer_list<const char*> of) {
    return *(of.begin() + Roll(static_cast<unsigned>(of.size())));
  }
  std::string Test() {
    const std::string sign = Any({" = ", " <> ", " < ", " > ", " <= ", " >= "});
    switch (Roll(7)) {
      case 0:
        return "\"NAME\"" + sign +
               Any({"'Alpha'", "'alpha'", "'O''Brien'", "''", "'C\u00F4te'", "'50%'"});
      case 1:
        return "\"NAME\"" + Any({" LIKE ", " NOT LIKE "}) + Any({"'%a%'", "'b___'", "'%'", "'A%'"});
      case 2:
        return "\"DAY\"" + sign + Any({"'2020-02-29'", "'2026-11-16'", "'1950-01-01'"});
      case 3:
        return Any({"NAME", "VAL", "\"CNT\"", "DAY", "\"Gr\u00F6\u00DFe\"", "\"NOPE\""}) +
               Any({" IS NULL", " IS NOT NULL"});
      case 4:
        return Any({"VAL", "\"CNT\"", "BIG"}) + Any({" IN ", " NOT IN "}) + "(1.5, 2, -9999, 7)";
      case 5:
        return Any({"VAL", "\"CNT\"", "BIG"}) + " BETWEEN " + Any({"-1", "0", "2.5"}) + " AND " +
               Any({"2", "33", "5000000000"});
      default:
        return Any({"VAL", "\"CNT\"", "BIG", "\"Gr\u00F6\u00DFe\"", "VAL * 2", "CNT + 1"}) + sign +
               Any({"1.5", "2", "-9999", "5000000000", "VAL", "\"CNT\"", "'2'", ""});
    }
  }
  std::mt19937 random_;
};

std::string Shown(const columns::RowIds& ids) {
  std::string text;
  for (const std::int64_t id : ids) text += std::to_string(id) + " ";
  return text;
}

std::string ByGdal(VectorSource& source, const std::string& clause) {
  CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
  const VectorSource::Handle layer = source.Open();
  if (layer->SetAttributeFilter(clause.c_str()) != OGRERR_NONE) return "refused";
  CPLErrorReset();
  columns::RowIds ids;
  while (const OGRFeatureUniquePtr row{layer->GetNextFeature()}) ids.push_back(row->GetFID());
  const bool broken = source.HasOwnSql() && CPLGetLastErrorType() >= CE_Failure;
  return broken ? "refused" : Shown(ids);
}

std::string ByUs(VectorSource& source, const std::string& clause) {
  try {
    source.TryClause(FromUtf8(clause));
    const columns::RowIds ids = source.IdsOfRows(FromUtf8(clause), false);
    EXPECT_EQ(source.CountRows(FromUtf8(clause)), static_cast<std::int64_t>(ids.size())) << clause;
    return Shown(ids);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number, failure::kRefused) << clause << ": " << failure.what();
    return "refused";
  }
}

TEST(SourceClauses, FindWhatGdalsFilterFinds) {
  GDALAllRegister();
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.file);
    const auto source = std::make_shared<VectorSource>(AddressOf(
        {kind.provider, kind.file, {}, "System"}, BRELMON_SOURCE_DIR "/tests/contract/kinds"));
    ASSERT_TRUE(source->Valid()) << source->Problem();
    Clauses clauses(11);
    int refused = 0;
    for (int i = 0; i < 2000; ++i) {
      const std::string clause = clauses.Next();
      const std::string ours = ByUs(*source, clause);
      // A misspelt name in quotes is a text to some databases.
      if (clause.find("NOPE") != std::string::npos) {
        EXPECT_EQ(ours, "refused") << clause;
      } else {
        ASSERT_EQ(ours, ByGdal(*source, clause)) << clause;
      }
      refused += ours == "refused";
    }
    EXPECT_LT(refused, 1200);
  }
}

}  // namespace
}  // namespace brelmon::data
