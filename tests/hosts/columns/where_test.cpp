// SPDX-License-Identifier: GPL-2.0-or-later
// Random clauses over random rows: the evaluator finds what GDAL finds, or knows that it doesn't
// know.
#include "hosts/columns/where.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/clausegrammar.h"

namespace brelmon::columns {
namespace {

test::Roll Random(std::mt19937& random) {
  return [&random](unsigned sides) { return static_cast<unsigned>(random() % sides); };
}

TEST(WhereTest, FindsWhatGdalFinds) {
  int unknown = 0, clauses = 0;
  for (unsigned seed = 1; seed <= 25; ++seed) {
    std::mt19937 random(seed);
    test::BothRows rows(Random(random), 40);
    test::Clauses some(Random(random));
    for (int i = 0; i < 400; ++i, ++clauses) {
      const std::string clause = some.Next();
      const std::string ours = rows.ByColumns(clause);
      if (ours == "unknown") {
        ++unknown;
      } else {
        ASSERT_EQ(ours, rows.ByGdal(clause)) << clause;
      }
    }
  }
  EXPECT_LT(unknown * 5, clauses * 2) << "clauses that the evaluator leaves to others";
}

TEST(WhereTest, TornClausesAreNeverGuessed) {
  std::mt19937 random(7);
  test::BothRows rows(Random(random), 40);
  test::Clauses some(Random(random));
  for (int i = 0; i < 3000; ++i) {
    std::string clause = some.Next();
    for (unsigned cuts = 1 + random() % 2; cuts > 0 && !clause.empty(); --cuts) {
      clause.erase(random() % clause.size(), 1 + random() % 3);
    }
    // Torn letters are no texts.
    if (std::any_of(clause.begin(), clause.end(), [](char c) { return c < 0; })) continue;
    const std::string ours = rows.ByColumns(clause);
    if (ours != "unknown") {
      ASSERT_EQ(ours, rows.ByGdal(clause)) << clause;
    }
  }
}

}  // namespace
}  // namespace brelmon::columns
