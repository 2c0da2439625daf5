// SPDX-License-Identifier: GPL-2.0-or-later
// Statistics of long sorted arrays, most values distinct or most repeated.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

#include "platform/services.h"
#include "statistics/BrelmonFunctions.h"
#include "statistics/reportcontrols.h"

namespace brelmon {
namespace {

struct QuietHost : IApplication, IStatusBar, IScreen, std::enable_shared_from_this<QuietHost> {
  Ref<IDocument> Document() override { return {}; }
  Ref<IStatusBar> StatusBar() override { return Ref<QuietHost>(shared_from_this()); }
  Ref<ITemplates> Templates() override { return {}; }
  std::int32_t hWnd() override { return 0; }
  void ShowProgressBar(const Text&, std::int32_t, std::int32_t, std::int32_t, bool) override {}
  void StepProgressBar() override { ++steps; }
  void HideProgressBar() override {}
  void SetMousePointer(Pointer) override {}
  std::int64_t steps = 0;
};

/// `spread`: how many different values there can be.
void StatisticsOf(benchmark::State& state, int spread) {
  std::mt19937 random(1);
  std::uniform_int_distribution<int> value(0, spread);
  std::vector<double> values(static_cast<std::size_t>(state.range(0)));
  std::generate(values.begin(), values.end(), [&] { return value(random) / 8.0; });
  std::sort(values.begin(), values.end());
  const auto host = New<QuietHost>();
  Services services;
  services.screen = host.Get();
  const ServicesScope scope(services);
  for (auto _ : state) {
    StatisticsResults results;
    StatsFromArray(values, u"FIELD", u"Layer", results, host);
    benchmark::DoNotOptimize(results);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(StatisticsOf, Distinct, 2000000000)->Arg(100000)->Arg(1000000);
BENCHMARK_CAPTURE(StatisticsOf, Repeated, 100)->Arg(100000)->Arg(1000000);

/// A mode phrase of many values is one long line.
void WrappingALongLine(benchmark::State& state) {
  Text text = u"Mode: ";
  while (text.size() < static_cast<std::size_t>(state.range(0))) text += u"1234.5, ";
  for (auto _ : state) benchmark::DoNotOptimize(WrapForPrint(text));
}
BENCHMARK(WrappingALongLine)->Arg(10000)->Arg(1000000);

}  // namespace
}  // namespace brelmon
