// SPDX-License-Identifier: GPL-2.0-or-later
// Dates as day serials, and their texts under the process's locale.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace brelmon {

struct CivilTime {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
};

/// Days since 30 December 1899; the fraction is the time of day. Before that day the whole part
/// counts down and the fraction still counts up (-1.25 is six o'clock of 29 December).
struct Date {
  double Serial = 0;
  bool operator==(const Date&) const = default;
};

/// Seconds are rounded to the nearest. Years 100 to 9999; outside, fails with 5.
Date ToDate(const CivilTime& civil);
CivilTime ToCivil(Date date);
/// Whole day serial, the time of day dropped.
std::int32_t DaySerial(Date date);

/// Short date with a four-digit year, then a blank and the long time unless it is midnight.
Text GeneralText(Date date);
Text LongTime(Date date);  // carries no zone
Text LongDate(Date date);

}  // namespace brelmon
