// SPDX-License-Identifier: GPL-2.0-or-later
// The engine against whole-number arithmetic without rounding, and modes against counting by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "platform/number.h"
#include "statistics/BrelmonFunctions.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

__extension__ using Whole = __int128;
constexpr std::int64_t kUnit = 1024;  // values are multiples of a 1024th: doubles hold them exactly

std::string ModeOf(const std::vector<std::int64_t>& numbers) {
  std::map<std::int64_t, int> counts;
  for (const std::int64_t number : numbers) ++counts[number];
  int most = 0, modes = 0;
  for (const auto& [number, count] : counts) most = std::max(most, count);
  if (most < 2) return " < No Mode Found >";
  std::string values;
  for (const auto& [number, count] : counts) {
    if (count != most) continue;
    values += (modes++ ? ", " : "") + ToUtf8(GeneralText(static_cast<double>(number) / kUnit));
  }
  const std::string cases = " found [" + std::to_string(most) + " cases";
  return modes == 1 ? "1 mode" + cases + "]: Value = " + values
                    : std::to_string(modes) + " modes" + cases + " each]: Values = " + values;
}

TEST(StatsFromArray, AgreesWithExactArithmetic) {
  std::mt19937 random(2026);
  const test::FakeWorld world;
  for (int run = 0; run < 2000; ++run) {
    const std::int64_t span = run % 3 == 0 ? 8 : 1 << 20;  // few values repeat often
    std::vector<std::int64_t> numbers(2 + random() % 60);
    for (auto& number : numbers) number = static_cast<std::int64_t>(random() % (2 * span)) - span;
    std::sort(numbers.begin(), numbers.end());
    std::vector<double> values;
    Whole total = 0, squares = 0;
    for (const std::int64_t number : numbers) {
      values.push_back(static_cast<double>(number) / kUnit);
      total += number;
      squares += Whole{number} * number;
    }
    StatisticsResults results;
    StatsFromArray(values, u"F", u"L", results, world.application);
    const auto n = static_cast<std::int64_t>(numbers.size());
    const auto middle = static_cast<std::size_t>(n / 2);
    const Whole twice =
        n % 2 ? Whole{2} * numbers[middle] : Whole{numbers[middle - 1]} + numbers[middle];
    const double sum = static_cast<double>(total) / kUnit;
    const double variance = static_cast<double>(n * squares - total * total) /
                            static_cast<double>(Whole{n} * (n - 1) * kUnit * kUnit);
    EXPECT_EQ(results[0].ToDouble(), sum);
    EXPECT_EQ(results[1].ToDouble(), sum / static_cast<double>(n));
    EXPECT_EQ(results[4].ToDouble(), values.back() - values.front());
    EXPECT_NEAR(results[7].ToDouble(), variance, variance * 1e-9 + 1e-12);
    EXPECT_EQ(results[8].ToDouble(), static_cast<double>(twice) / (2 * kUnit));
    EXPECT_EQ(ToUtf8(results[statistic::Mode].ToText()), ModeOf(numbers));
  }
}

}  // namespace
}  // namespace brelmon
