// SPDX-License-Identifier: GPL-2.0-or-later
// Day serials and the calendar (proleptic Gregorian), and dates as text by the locale's patterns.
#include "platform/date.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>

#include "platform/failure.h"
#include "platform/number.h"
#include "platform/services.h"

namespace brelmon {
namespace {

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr int kSecondsOfDay = 24 * 60 * 60;
constexpr auto kDayZero = std::chrono::sys_days{std::chrono::year{1899} / 12 / 30};

bool Within(int value, int first, int last) { return value >= first && value <= last; }

std::chrono::year_month_day DayOf(const CivilTime& civil) {
  return std::chrono::year{civil.year} / civil.month / civil.day;
}

bool IsInOrder(const CivilTime& civil) {
  return Within(civil.year, kFirstYear, kLastYear) && Within(civil.month, 1, 12) &&
         Within(civil.day, 1, 31) && DayOf(civil).ok() && Within(civil.hour, 0, 23) &&
         Within(civil.minute, 0, 59) && Within(civil.second, 0, 59);
}

CivilTime Compose(std::int32_t serial, int seconds) {
  const std::chrono::year_month_day day{kDayZero + std::chrono::days{serial}};
  return {static_cast<int>(day.year()),
          static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

Text Padded(int number, std::size_t width) {
  const Text digits = GeneralText(std::int32_t{number});
  return Text(width > digits.size() ? width - digits.size() : 0, u'0') + digits;
}

/// A name in full from four letters on, else cut to three.
Text Named(const Text& name, std::size_t count) { return count > 3 ? name : name.substr(0, 3); }

/// One run of `count` equal pattern letters. Years are always written in full.
Text Piece(char16_t letter, std::size_t count, const CivilTime& civil) {
  const Locale& locale = CurrentLocale();
  const auto twelve = (civil.hour + 11) % 12 + 1;
  switch (letter) {
    case u'y':
      return Padded(civil.year, 4);
    case u'M':
      if (count < 3) return Padded(civil.month, count);
      return Named(locale.Months[static_cast<std::size_t>(civil.month) - 1], count);
    case u'd':
      return Padded(civil.day, count);
    case u'E':
      return Named(locale.Weekdays[std::chrono::weekday{DayOf(civil)}.c_encoding()], count);
    case u'H':
      return Padded(civil.hour, count);
    case u'h':
      return Padded(twelve, count);
    case u'm':
      return Padded(civil.minute, count);
    case u's':
      return Padded(civil.second, count);
    case u'a':
      return civil.hour < 12 ? locale.Morning : locale.Afternoon;
    default:
      return Text(count, letter);
  }
}

/// Text in apostrophes behind `at`, which moves behind it; a doubled apostrophe is one.
Text Quoted(TextView pattern, std::size_t& at) {
  const std::size_t end = std::min(pattern.find(u'\'', at + 1), pattern.size());
  Text text(pattern.substr(at + 1, end - at - 1));
  if (text.empty() && end < pattern.size()) text = u"'";
  at = end + 1;
  return text;
}

Text Formatted(TextView pattern, const CivilTime& civil) {
  Text text;
  for (std::size_t at = 0; at < pattern.size();) {
    if (pattern[at] == u'\'') {
      text += Quoted(pattern, at);
      continue;
    }
    const std::size_t end = std::min(pattern.find_first_not_of(pattern[at], at), pattern.size());
    text += Piece(pattern[at], end - at, civil);
    at = end;
  }
  return Trim(text);
}

}  // namespace

Date ToDate(const CivilTime& civil) {
  if (!IsInOrder(civil)) Raise(failure::kInvalidCall, 0);
  const auto whole = static_cast<double>((std::chrono::sys_days{DayOf(civil)} - kDayZero).count());
  const int seconds = (civil.hour * 60 + civil.minute) * 60 + civil.second;
  const double fraction = static_cast<double>(seconds) / kSecondsOfDay;
  return {whole < 0 ? whole - fraction : whole + fraction};
}

CivilTime ToCivil(Date date) {
  std::int32_t whole = DaySerial(date);
  const double fraction = std::fabs(date.Serial - whole);
  auto seconds = static_cast<int>(std::lround(fraction * kSecondsOfDay));
  if (seconds == kSecondsOfDay) {
    ++whole;
    seconds = 0;
  }
  static const std::int32_t first = DaySerial(ToDate({kFirstYear, 1, 1}));
  static const std::int32_t last = DaySerial(ToDate({kLastYear, 12, 31}));
  if (whole < first || whole > last) Raise(failure::kInvalidCall, 0);
  return Compose(whole, seconds);
}

std::int32_t DaySerial(Date date) { return ToLong(std::trunc(date.Serial), 0); }

Text GeneralText(Date date) {
  const CivilTime civil = ToCivil(date);
  Text text = Formatted(CurrentLocale().ShortDatePattern, civil);
  if (civil.hour != 0 || civil.minute != 0 || civil.second != 0) text += u' ' + LongTime(date);
  return text;
}

Text LongTime(Date date) { return Formatted(CurrentLocale().LongTimePattern, ToCivil(date)); }

Text LongDate(Date date) { return Formatted(CurrentLocale().LongDatePattern, ToCivil(date)); }

}  // namespace brelmon
