// SPDX-License-Identifier: GPL-2.0-or-later
// Eleven descriptive statistics of a sorted array, in three passes.
#include <cmath>

#include "frame/guard.h"
#include "platform/number.h"
#include "platform/services.h"
#include "statistics/BrelmonFunctions.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr double kNoMedian = -9999;
constexpr std::int64_t kPasses = 3;

/// What an operation gave, if it is a number; an infinity or worse is an overflow.
double Checked(double result, std::int32_t line = __builtin_LINE(),
               const char* file = __builtin_FILE()) {
  if (!std::isfinite(result)) Raise(failure::kOverflow, line, file);
  return result;
}

/// A counter of 32 bits.
std::int32_t Counter(std::int64_t count, std::int32_t line = __builtin_LINE(),
                     const char* file = __builtin_FILE()) {
  const auto counter = static_cast<std::int32_t>(count);
  if (counter != count) Raise(failure::kOverflow, line, file);
  return counter;
}

struct Repeated {
  double Cases;
  double Value;
};

/// Values that occur at least twice, in order. Equal is exactly equal.
std::vector<Repeated> FindRepeated(const std::vector<double>& values, std::int32_t last,
                                   IStatusBar& bar) {
  std::vector<Repeated> table;
  table.reserve(values.size());
  const double* const at = values.data();
  for (std::int32_t i = 0; i < last; ++i) {
    const double value = at[i];
    double cases = 1;
    while (i < last && at[i + 1] == value) {
      ++i;
      bar.StepProgressBar();
      ++cases;
    }
    if (cases > 1) table.push_back({cases, value});
    bar.StepProgressBar();
  }
  return table;
}

Text ModePhrase(const std::vector<Repeated>& table) {
  double best = 0;
  std::vector<double> modes;
  for (const Repeated& row : table) {
    if (row.Cases > best) {
      best = row.Cases;
      modes.clear();
    }
    if (row.Cases == best) modes.push_back(row.Value);
  }
  if (modes.empty()) return u" < No Mode Found >";
  if (modes.size() == 1) {
    return u"1 mode found [" + InsertCommas(best) + u" cases]: Value = " + GeneralText(modes[0]);
  }
  Text phrase = GeneralText(static_cast<double>(modes.size())) + u" modes found [" +
                InsertCommas(best) + u" cases each]: Values = ";
  for (const double mode : modes) phrase += GeneralText(mode) + u", ";
  return BasicTrimAvenue(phrase, u"", u", ");
}

struct Sums {
  double Total = 0, Minimum = 0, Maximum = 0;
};

Sums SumUp(const std::vector<double>& values, IStatusBar& bar) {
  Sums sums;
  sums.Minimum = sums.Maximum = At(values, 0);
  for (const double value : values) {
    bar.StepProgressBar();
    if (value < sums.Minimum) sums.Minimum = value;
    if (value > sums.Maximum) sums.Maximum = value;
    sums.Total = Checked(sums.Total + value);
  }
  return sums;
}

/// About the mean that is final already: the cancellation of the one-pass formula is not wanted.
double SumOfSquares(const std::vector<double>& values, double mean, IStatusBar& bar) {
  double sum = 0;
  for (const double value : values) {
    bar.StepProgressBar();
    const double difference = Checked(value - mean);
    sum = Checked(sum + Checked(difference * difference));
  }
  return sum;
}

double Median(const std::vector<double>& values) {
  const auto n = static_cast<std::int32_t>(values.size());
  if (n % 2 != 0) return At(values, (n - 1) / 2);
  return Checked(Checked(At(values, n / 2 - 1) + At(values, n / 2)) / 2);
}

}  // namespace

void StatsFromArray(const std::vector<double>& values, const Text& fieldName, const Text& tableName,
                    StatisticsResults& results, const Ref<IApplication>& application) {
  Guard::Top(u"StatsFromArray", [&] {
    Screen().SetMousePointer(Pointer::Hourglass);
    const std::int32_t last = Counter(static_cast<std::int64_t>(values.size()) - 1);
    const auto bar = application->StatusBar();
    bar->ShowProgressBar(u"Calculating Statistics on field [" + fieldName + u"] in " + tableName, 1,
                         Counter(kPasses * (last - 1)), 1, true);
    bar->StepProgressBar();

    const Text mode = ModePhrase(FindRepeated(values, last, *bar));
    const Sums sums = SumUp(values, *bar);
    const double n = last + 1.0;
    const double mean = Checked(sums.Total / n);
    const double squares = SumOfSquares(values, mean, *bar);
    double median = kNoMedian, variance = 0, deviation = 0, error = 0;
    if (n > 1) {
      median = Median(values);
      variance = Checked(squares / (n - 1));
      deviation = std::sqrt(variance);
      error = Checked(deviation / std::sqrt(n));
    }
    const double range = Checked(sums.Maximum - sums.Minimum);
    results = {sums.Total, mean,     sums.Minimum, sums.Maximum, range, n,
               deviation,  variance, median,       error,        mode};
    bar->HideProgressBar();
    Screen().SetMousePointer(Pointer::Default);
  });
}

}  // namespace brelmon
