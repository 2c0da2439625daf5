// SPDX-License-Identifier: GPL-2.0-or-later
// The sorters' results, on orders that are hard for a middle pivot as well, and their bounds.
#include "util/QuickSortNonCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <random>

#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using Longs = std::vector<std::int32_t>;

template <class T>
std::int32_t Last(const std::vector<T>& values) {
  return static_cast<std::int32_t>(values.size()) - 1;
}

/// Puts the largest element of what is left into the middle at every split.
Longs MiddleKiller(std::int32_t count) {
  Longs slots(static_cast<std::size_t>(count));
  std::iota(slots.begin(), slots.end(), 0);
  Longs values(slots.size());
  for (std::int32_t high = count - 1; high >= 0; --high) {
    std::int32_t middle = high / 2;
    if (high % 2 == 1 && middle % 2 == 1) ++middle;  // ties to even
    std::swap(slots[static_cast<std::size_t>(middle)], slots[static_cast<std::size_t>(high)]);
    values[static_cast<std::size_t>(slots[static_cast<std::size_t>(high)])] = high;
  }
  return values;
}

Longs Ordered(std::int32_t count, std::int32_t (*valueAt)(std::int32_t, std::int32_t)) {
  Longs values;
  for (std::int32_t at = 0; at < count; ++at) values.push_back(valueAt(at, count));
  return values;
}

TEST(LongAscending, SortsEveryOrder) {
  std::mt19937 random(7);
  Longs shuffled = Ordered(100000, [](std::int32_t at, std::int32_t) { return at - 50000; });
  std::ranges::shuffle(shuffled, random);
  const Longs orders[] = {
      {5},
      {2, 1},
      {std::numeric_limits<std::int32_t>::max(), 0, std::numeric_limits<std::int32_t>::min()},
      Ordered(100001, [](std::int32_t at, std::int32_t) { return at; }),
      Ordered(100000, [](std::int32_t at, std::int32_t count) { return count - at; }),
      Ordered(100000, [](std::int32_t, std::int32_t) { return 3; }),
      Ordered(100000, [](std::int32_t at, std::int32_t) { return at % 2; }),
      Ordered(100000, [](std::int32_t at, std::int32_t count) { return std::min(at, count - at); }),
      shuffled,
      MiddleKiller(200000),  // at one element a split this would not end
  };
  for (const Longs& order : orders) {
    Longs values = order;
    Longs expected = order;
    std::ranges::sort(expected);
    LongAscending(values, 0, Last(values));
    EXPECT_TRUE(values == expected) << order.size();
  }
}

TEST(LongAscending, FailsOutOfBounds) {
  const struct {
    Longs values;
    std::int32_t low, high;
  } rows[] = {{{}, 0, -1},
              {{}, 0, 0},
              {{3, 2, 1}, 0, 3},
              {{3, 2}, -1, 1},
              {{3, 2}, 0, std::numeric_limits<std::int32_t>::max()}};
  for (const auto& row : rows) {
    test::FakeWorld world;
    Longs values = row.values;
    LongAscending(values, row.low, row.high);
    EXPECT_EQ(values, row.values);
    EXPECT_EQ(test::FailureIn(world), 9);
  }
}

TEST(DoubleAscending, SortsAndStaysInRangeWithNaN) {
  std::vector<double> values = {2.5, -1e300, 0.0, 1e-300, -2.5};
  DoubleAscending(values, 0, Last(values));
  EXPECT_EQ(values, (std::vector<double>{-1e300, -2.5, 0.0, 1e-300, 2.5}));

  std::mt19937 random(11);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (int round = 0; round < 200; ++round) {
    std::vector<double> mixed(1 + random() % 300);
    for (double& value : mixed) value = random() % 3 == 0 ? nan : random() % 100;
    const auto count = std::ranges::count_if(mixed, [](double value) { return value != value; });
    DoubleAscending(mixed, 0, Last(mixed));
    EXPECT_EQ(std::ranges::count_if(mixed, [](double value) { return value != value; }), count);
  }
}

/// Sorts the inner part of random arrays, short and long, by a sorter and by the library.
template <class T>
void CompareWithLibrary(void (*sorter)(std::vector<T>&, std::int32_t, std::int32_t),
                        T (*any)(std::mt19937_64&), bool (*below)(const T&, const T&)) {
  std::mt19937_64 random(5);
  for (const std::int32_t count : {2, 7, 60, 1499, 1510, 6000, 6000, 6000}) {
    std::vector<T> values(static_cast<std::size_t>(count));
    for (T& value : values) value = any(random);
    std::vector<T> expected = values;
    std::stable_sort(expected.begin() + 1, expected.end() - 1, below);
    sorter(values, 1, count - 2);
    const auto differ = [&](const T& one, const T& other) {
      return below(one, other) || below(other, one);
    };
    const auto [at, due] =
        std::mismatch(values.begin(), values.end(), expected.begin(), std::not_fn(differ));
    EXPECT_EQ(at - values.begin(), count);
    std::sort(values.begin(), values.end());  // none is lost, none comes twice
    std::sort(expected.begin(), expected.end());
    EXPECT_TRUE(values == expected) << count;
  }
}

TEST(Sorters, AgreeWithTheLibrary) {
  CompareWithLibrary<std::int32_t>(
      LongAscending,
      [](auto& random) { return static_cast<std::int32_t>(random() >> (random() % 60)); },
      [](const std::int32_t& one, const std::int32_t& other) { return one < other; });
  CompareWithLibrary<double>(
      DoubleAscending,
      [](auto& random) {
        const double special[] = {0.0, -0.0, HUGE_VAL, -HUGE_VAL, 5e-324, -1e308};
        const double number = std::ldexp(static_cast<std::int64_t>(random()), random() % 200 - 150);
        return random() % 8 == 0 ? special[random() % 6] : number;
      },
      [](const double& one, const double& other) { return one < other; });
  for (const TextView alphabet : {TextView(u"aAbBzZ\0_", 8), TextView(u"a\u00C4\u00E4", 3),
                                  TextView(u"a\u03A3\u03C3\uFF21\uFF41", 5)}) {
    static TextView units;
    units = alphabet;
    CompareWithLibrary<Text>(
        StringsAscending,
        [](auto& random) {
          Text text = random() % 4 == 0 ? u"" : u"Shared Beginning";
          for (auto more = random() % 12; more > 0; --more) text += units[random() % units.size()];
          return text;
        },
        [](const Text& one, const Text& other) { return CompareNoCase(one, other) < 0; });
  }
}

TEST(StringsAscending, TakesNoNoticeOfCase) {
  std::vector<Text> values = {u"b", u"A", u"a", u"B"};
  StringsAscending(values, 0, 3);
  EXPECT_TRUE(EqualNoCase(values[0] + values[1] + values[2] + values[3], u"aabb"));
  EXPECT_NE(values[0], values[1]);
  EXPECT_NE(values[2], values[3]);

  std::vector<Text> names = {u"zebra",   u"\u00C4", u"Zeb", u"_x", u"",
                             u"\u00E4b", u"Z",      u"10",  u"9"};
  StringsAscending(names, 0, Last(names));
  EXPECT_EQ(names, (std::vector<Text>{u"", u"10", u"9", u"_x", u"Z", u"Zeb", u"zebra", u"\u00C4",
                                      u"\u00E4b"}));
}

}  // namespace
}  // namespace brelmon
