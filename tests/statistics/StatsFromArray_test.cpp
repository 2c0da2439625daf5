// SPDX-License-Identifier: GPL-2.0-or-later
// The eleven statistics of sorted arrays.
#include <gtest/gtest.h>

#include <cmath>

#include "statistics/BrelmonFunctions.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

struct StatsRow {
  std::vector<double> values;
  std::vector<double> numbers;  // in the order of the result array
  const char* mode;
};

// Total, mean, minimum, maximum, range, n, deviation, variance, median, error.
TEST(StatsFromArray, OfSortedValues) {
  const StatsRow rows[] = {
      {{1, 2, 2, 3, 10},
       {18, 3.6, 1, 10, 9, 5, 3.646916505762094, 13.300000000000002, 2, 1.6309506430300091},
       "1 mode found [2 cases]: Value = 2"},
      {{1, 1, 2, 2, 3},
       {9, 1.8, 1, 3, 2, 5, 0.8366600265340756, 0.7000000000000001, 2, 0.3741657386773941},
       "2 modes found [2 cases each]: Values = 1, 2"},
      {{7, 7}, {14, 7, 7, 7, 0, 2, 0, 0, 7, 0}, "1 mode found [2 cases]: Value = 7"},
      {{1, 4},
       {5, 2.5, 1, 4, 3, 2, 2.1213203435596424, 4.5, 2.5, 1.4999999999999998},
       " < No Mode Found >"},
      {{4, 5, 5}, {14}, "1 mode found [2 cases]: Value = 5"},
      {{-3}, {-3, -3, -3, -3, 0, 1, 0, 0, -9999, 0}, " < No Mode Found >"},
      // The longer run wins, whichever comes first; equal is exactly equal.
      {{1, 1, 2, 2, 2, 3, 3}, {14}, "1 mode found [3 cases]: Value = 2"},
      {{0.3, 0.1 + 0.2, 1234.5, 1234.5}, {2469.6}, "1 mode found [2 cases]: Value = 1234.5"}};
  for (const StatsRow& row : rows) {
    const FakeWorld world;
    StatisticsResults results;
    StatsFromArray(row.values, u"POP", u"Tracts", results, world.application);
    EXPECT_EQ(Trails(world), "");
    for (std::size_t i = 0; i < row.numbers.size(); ++i) {
      EXPECT_EQ(results[i].ToDouble(), row.numbers[i]) << row.mode << ", statistic " << i;
    }
    EXPECT_EQ(ToUtf8(results[statistic::Mode].ToText()), row.mode);
  }
}

TEST(StatsFromArray, TellsOfAnOverflowAndLeavesTheResults) {
  const double huge = 1.5e308;  // too much for the total, for a square, no number to begin with
  for (const std::vector<double>& values :
       {std::vector{huge, huge}, {-huge, huge}, {1, HUGE_VAL}, {std::nan(""), std::nan("")}}) {
    const FakeWorld world;
    StatisticsResults results;
    StatsFromArray(values, u"POP", u"Tracts", results, world.application);
    EXPECT_EQ(FailureIn(world), 6);
    for (const Value& result : results) EXPECT_TRUE(result.IsEmpty());
    EXPECT_EQ(world.pointer, Pointer::Hourglass);
  }
}

TEST(StatsFromArray, NoValuesAreOutOfBounds) {
  const FakeWorld world;
  StatisticsResults results;
  StatsFromArray({}, u"POP", u"Tracts", results, world.application);
  EXPECT_EQ(FailureIn(world), 9);
}

}  // namespace
}  // namespace brelmon
