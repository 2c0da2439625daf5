// SPDX-License-Identifier: GPL-2.0-or-later
// Descriptive statistics of sorted numbers, and numbers told in words.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "platform/application.h"
#include "platform/collection.h"
#include "platform/value.h"

namespace brelmon {

/// Places of the statistics in a result array: numbers but for the mode, which is a phrase.
namespace statistic {
enum Index : std::int32_t {
  Total,
  Mean,
  Minimum,
  Maximum,
  Range,
  Count,
  StandardDeviation,  // of a sample: divisor n - 1
  Variance,
  Median,  // -9999 for a single value
  StandardError,
  Mode,
};
}  // namespace statistic
using StatisticsResults = std::array<Value, 11>;

/// Statistics of at least one value, sorted ascending; the sum of squares is taken about the mean
/// in a second pass. The names only serve the progress message. After a failure, which is shown,
/// `results` is as it was, and the hourglass and the progress bar stay.
void StatsFromArray(const std::vector<double>& values, const Text& fieldName, const Text& tableName,
                    StatisticsResults& results, const Ref<IApplication>& application);

/// A power of ten in words, and a label such as "10^6".
using NumberName = std::array<Text, 2>;
/// By exponent in decimal digits: "-303" to "303".
using NumberNames = Collection<NumberName>;

/// Names from "centillionths" to "centillion", in ascending order. Unset after a failure.
Ref<NumberNames> MakeNumNameDictionary();

/// The number with separators and at most `decimals` places; above 999999 and below 0.001 as a
/// number of up to three whole digits and a name ("12.3 million"). The mantissa is rounded before
/// it is scaled. Empty after a failure.
Text FormatNumberBrelmon(double value, const Ref<NumberNames>& dictionary, std::int16_t decimals);

}  // namespace brelmon
