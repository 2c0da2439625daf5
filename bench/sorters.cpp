// SPDX-License-Identifier: GPL-2.0-or-later
// The four sorters on easy, random and hostile orders of up to ten million elements.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "platform/number.h"
#include "util/QuickSortNonCase.h"

namespace brelmon {
namespace {

using Longs = std::vector<std::int32_t>;

enum Order { kSorted, kReversed, kShuffled, kFewDistinct, kMiddleKiller };

/// The largest element of what is left stands in the middle at every split.
Longs MiddleKiller(std::size_t count) {
  Longs slots(count);
  std::iota(slots.begin(), slots.end(), 0);
  Longs values(count);
  for (std::size_t high = count; high-- > 0;) {
    const std::size_t middle = high / 2 + (high % 4 == 3 ? 1 : 0);  // ties to even
    std::swap(slots[middle], slots[high]);
    values[static_cast<std::size_t>(slots[high])] = static_cast<std::int32_t>(high);
  }
  return values;
}

Longs Ranks(std::int64_t order, std::int64_t count) {
  if (order == kMiddleKiller) return MiddleKiller(static_cast<std::size_t>(count));
  Longs values(static_cast<std::size_t>(count));
  std::iota(values.begin(), values.end(), 0);
  std::mt19937 random(1);
  if (order == kReversed) std::ranges::reverse(values);
  if (order == kShuffled) std::ranges::shuffle(values, random);
  if (order == kFewDistinct) {
    for (auto& value : values) value = static_cast<std::int32_t>(random() % 10);
  }
  return values;
}

template <class T, class Make>
void Sort(benchmark::State& state, void (*sorter)(std::vector<T>&, std::int32_t, std::int32_t),
          Make make) {
  const Longs ranks = Ranks(state.range(0), state.range(1));
  std::vector<T> unsorted;
  unsorted.reserve(ranks.size());
  for (const auto rank : ranks) unsorted.push_back(make(rank));
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<T> values = unsorted;
    state.ResumeTiming();
    sorter(values, 0, static_cast<std::int32_t>(values.size()) - 1);
    benchmark::DoNotOptimize(values.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(1));
}

void Orders(benchmark::internal::Benchmark* each) {
  each->ArgNames({"order", "n"})->Unit(benchmark::kMillisecond);
  for (const std::int64_t count : {100'000, 1'000'000}) {
    for (int order = kSorted; order <= kMiddleKiller; ++order) each->Args({order, count});
  }
}

BENCHMARK_CAPTURE(Sort, LongAscending, LongAscending, [](std::int32_t rank) { return rank; })
    ->Apply(Orders)
    ->Args({kShuffled, 10'000'000})
    ->Args({kMiddleKiller, 10'000'000});
BENCHMARK_CAPTURE(Sort, DoubleAscending, DoubleAscending,
                  [](std::int32_t rank) { return rank * 0.5; })
    ->Apply(Orders)
    ->Args({kShuffled, 10'000'000})
    ->Args({kMiddleKiller, 10'000'000});
BENCHMARK_CAPTURE(Sort, StringsAscending, StringsAscending, [](std::int32_t rank) {
  return u"Name " + GeneralText(100'000'000 + rank);
})->Apply(Orders);
BENCHMARK_CAPTURE(Sort, DatesAscending, DatesAscending, [](std::int32_t rank) {
  return Date{rank % 60'000 + 0.25};
})->Apply(Orders);

}  // namespace
}  // namespace brelmon
