// SPDX-License-Identifier: GPL-2.0-or-later
// Ascending sorts in place, and the day number of a date.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/date.h"
#include "platform/text.h"

namespace brelmon {

/// Each sorts the elements from index `low` to `high`, both included; an index outside the array
/// fails with 9 and shows the trail, with nothing changed. Not stable. Time n log n in the worst
/// case, stack log n.
void LongAscending(std::vector<std::int32_t>& values, std::int32_t low, std::int32_t high);
/// A NaN ends up anywhere and disturbs its neighbours' order.
void DoubleAscending(std::vector<double>& values, std::int32_t low, std::int32_t high);
/// Regardless of case; texts that differ in case only stand in no promised order.
void StringsAscending(std::vector<Text>& values, std::int32_t low, std::int32_t high);
/// By day; dates of one day stand in no promised order.
void DatesAscending(std::vector<Date>& values, std::int32_t low, std::int32_t high);

/// The day serial of a date's text form, the time of day dropped. Fails outside the calendar.
std::int32_t DateToJulian(Date date);

}  // namespace brelmon
