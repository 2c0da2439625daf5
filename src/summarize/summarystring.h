// SPDX-License-Identifier: GPL-2.0-or-later
// The line that tells the host's dissolve what to compute.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/text.h"

namespace brelmon {

/// What the tree offers of a field: all but the last two of a numeric one, those of any other.
enum class Statistic { Minimum, Maximum, Average, Sum, StandardDeviation, Variance, First, Last };
struct StatisticWords {
  Statistic Is;
  TextView Caption;  // in the tree
  TextView Word;     // to the host's dissolve
};
/// Pictures of its nodes: the tick of a statistic is the picture.
enum TreeImage : std::int32_t { kClear = 1, kTicked = 2, kString = 3, kNumber = 4, kDate = 6 };

std::span<const StatisticWords> StatisticsOf(bool numeric);

/// One ticked statistic of a field.
struct SummaryTerm {
  Statistic Is;
  Text Field;  // actual name
};

/// "Minimum.F, Count.F" and then the terms in their order, each "Word.FIELD". The host knows no
/// first and last: the tree's "First" is the minimum and its "Last" the maximum.
Text SummaryString(const Text& field, const std::vector<SummaryTerm>& terms);

}  // namespace brelmon
