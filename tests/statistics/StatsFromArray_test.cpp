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

class Statistics : public testing::TestWithParam<StatsRow> {};

TEST_P(Statistics, OfSortedValues) {
  const StatsRow& row = GetParam();
  const FakeWorld world;
  StatisticsResults results;
  StatsFromArray(row.values, u"POP", u"Tracts", results, world.application);
  EXPECT_EQ(Trails(world), "");
  for (std::size_t i = 0; i < row.numbers.size(); ++i) {
    EXPECT_EQ(results[i].ToDouble(), row.numbers[i]) << "statistic " << i;
  }
  EXPECT_EQ(ToUtf8(results[statistic::Mode].ToText()), row.mode);
}

// Total, mean, minimum, maximum, range, n, deviation, variance, median, error.
INSTANTIATE_TEST_SUITE_P(
    Rows, Statistics,
    testing::Values(
        StatsRow{
            {1, 2, 2, 3, 10},
            {18, 3.6, 1, 10, 9, 5, 3.646916505762094, 13.300000000000002, 2, 1.6309506430300091},
            "1 mode found [2 cases]: Value = 2"},
        StatsRow{
            {1, 1, 2, 2, 3},
            {9, 1.8, 1, 3, 2, 5, 0.8366600265340756, 0.7000000000000001, 2, 0.3741657386773941},
            "2 modes found [2 cases each]: Values = 1, 2"},
        StatsRow{{7, 7}, {14, 7, 7, 7, 0, 2, 0, 0, 7, 0}, "1 mode found [2 cases]: Value = 7"},
        StatsRow{{1, 4},
                 {5, 2.5, 1, 4, 3, 2, 2.1213203435596424, 4.5, 2.5, 1.4999999999999998},
                 " < No Mode Found >"},
        StatsRow{{4, 5, 5}, {14}, "1 mode found [2 cases]: Value = 5"},
        StatsRow{{-3}, {-3, -3, -3, -3, 0, 1, 0, 0, -9999, 0}, " < No Mode Found >"},
        // The longer run wins, whichever comes first; equal is exactly equal.
        StatsRow{{1, 1, 2, 2, 2, 3, 3}, {14}, "1 mode found [3 cases]: Value = 2"},
        StatsRow{
            {0.3, 0.1 + 0.2, 1234.5, 1234.5}, {2469.6}, "1 mode found [2 cases]: Value = 1234.5"}));

TEST(StatsFromArray, CountsCasesWithSeparators) {
  const FakeWorld world;
  StatisticsResults results;
  StatsFromArray(std::vector<double>(1200, 4.0), u"POP", u"Tracts", results, world.application);
  EXPECT_EQ(ToUtf8(results[statistic::Mode].ToText()), "1 mode found [1,200 cases]: Value = 4");
  EXPECT_EQ(results[statistic::Total].ToDouble(), 4800);
}

TEST(StatsFromArray, StepsTheBarOnceAValueAndPass) {
  const FakeWorld world;
  StatisticsResults results;
  StatsFromArray({1, 2, 2, 3, 10}, u"POP", u"Tracts", results, world.application);
  const test::Log expected = {"Pointer 11",
                              "Bar [Calculating Statistics on field [POP] in Tracts] 1..9 by 1 "
                              "one panel",
                              "Bar hidden after 15", "Pointer 0"};
  EXPECT_EQ(world.log, expected);
}

TEST(StatsFromArray, TellsOfAnOverflowAndLeavesTheResults) {
  const double huge = 1.5e308;
  const std::vector<std::vector<double>> cases = {
      {huge, huge},                      // the total
      {-huge, huge},                     // a square
      {1, HUGE_VAL},                     // no number to begin with
      {std::nan(""), std::nan("") * 2},  // nor here
  };
  for (const auto& values : cases) {
    const FakeWorld world;
    StatisticsResults results;
    StatsFromArray(values, u"POP", u"Tracts", results, world.application);
    ASSERT_EQ(world.trails.size(), 1u);
    EXPECT_NE(Trails(world).find("StatsFromArray src/statistics/StatsFromArray.cpp Line : "),
              std::string::npos);
    EXPECT_NE(Trails(world).find("Error Number \r\n\t6\r\n"), std::string::npos);
    for (const Value& result : results) EXPECT_TRUE(result.IsEmpty());
    EXPECT_EQ(world.pointer, Pointer::Hourglass);
    EXPECT_TRUE(world.log[1].starts_with("Bar ["));
    EXPECT_NE(world.log.back().substr(0, 10), "Bar hidden");
  }
}

TEST(StatsFromArray, NoValuesAreOutOfBounds) {
  const FakeWorld world;
  StatisticsResults results;
  StatsFromArray({}, u"POP", u"Tracts", results, world.application);
  EXPECT_NE(Trails(world).find("Error Number \r\n\t9\r\n"), std::string::npos) << Trails(world);
}

}  // namespace
}  // namespace brelmon
