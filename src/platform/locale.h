// SPDX-License-Identifier: GPL-2.0-or-later
// The one locale of a process. A host fills it in; English where the system names none.
#pragma once

#include <array>

#include "platform/text.h"

namespace brelmon {

/// Patterns use the letters of Unicode's date patterns: y yyyy M MM MMM MMMM d dd EEEE EEE
/// H HH h hh m mm s ss a, text in apostrophes, everything else as it stands.
struct Locale {
  char16_t DecimalSymbol = u'.';
  char16_t GroupSymbol = u',';
  Text ShortDatePattern = u"M/d/yyyy";
  Text LongTimePattern = u"h:mm:ss a";
  Text LongDatePattern = u"EEEE, MMMM d, yyyy";
  Text Morning = u"AM";
  Text Afternoon = u"PM";
  std::array<Text, 12> Months = {u"January",   u"February", u"March",    u"April",
                                 u"May",       u"June",     u"July",     u"August",
                                 u"September", u"October",  u"November", u"December"};
  std::array<Text, 7> Weekdays = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                  u"Thursday", u"Friday", u"Saturday"};
};

}  // namespace brelmon
