// SPDX-License-Identifier: GPL-2.0-or-later
// Symbols, patterns and names out of ICU.
#include "hosts/common/systemlocale.h"

#include <unicode/dcfmtsym.h>
#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>

#include <cstdlib>
#include <memory>

namespace brelmon::host {
namespace {

Text ToText(const icu::UnicodeString& text) {
  return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

/// The bare name, without code page and variant; empty for the locales that mean English here.
std::string BareName(const std::string& name) {
  const std::string bare = name.substr(0, name.find_first_of(".@"));
  return bare == "C" || bare == "POSIX" ? "" : bare;
}

/// With the calendar and the digits that the platform knows.
icu::Locale Plain(const std::string& bare) {
  return icu::Locale((bare + "@calendar=gregorian;numbers=latn").c_str());
}

char16_t SameLetter(char16_t letter) {
  switch (letter) {
    case u'L':
      return u'M';
    case u'c':
    case u'e':
      return u'E';
    case u'B':
    case u'b':
      return u'a';
    case u'K':
      return u'h';
    case u'k':
      return u'H';
    case u'u':
      return u'y';
    case u'\u00A0':
    case u'\u202F':
      return u' ';
    default:
      return letter;
  }
}

/// In the letters that the platform knows; the year always has four digits. Marks of direction
/// and the era are left out.
Text PlainPattern(const Text& pattern) {
  Text plain;
  bool quoted = false, inYear = false;
  for (const char16_t unit : pattern) {
    if (unit == u'\'') quoted = !quoted;
    const char16_t letter = quoted ? unit : SameLetter(unit);
    const bool year = letter == u'y' && !quoted;
    if (year && !inYear) plain += u"yyyy";
    inYear = year;
    const bool dropped = unit == u'\u200E' || unit == u'\u200F' || (letter == u'G' && !quoted);
    if (!year && !dropped) plain += letter;
  }
  return Trim(plain);
}

Text PatternOf(icu::DateFormat* format, const Text& otherwise) {
  const std::unique_ptr<icu::DateFormat> owner(format);
  const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format);
  if (simple == nullptr) return otherwise;
  icu::UnicodeString pattern;
  simple->toPattern(pattern);
  return PlainPattern(ToText(pattern));
}

void FillNumbers(const icu::Locale& system, Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DecimalFormatSymbols symbols(system, status);
  if (U_FAILURE(status)) return;
  using Symbols = icu::DecimalFormatSymbols;
  const Text decimal = ToText(symbols.getConstSymbol(Symbols::kDecimalSeparatorSymbol));
  const Text group = ToText(symbols.getConstSymbol(Symbols::kGroupingSeparatorSymbol));
  if (!decimal.empty()) locale.DecimalSymbol = decimal[0];
  // A no-break blank that single-byte text files can hold.
  if (!group.empty()) locale.GroupSymbol = group[0] == u'\u202F' ? u'\u00A0' : group[0];
}

void FillNames(const icu::Locale& system, Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(system, status);
  if (U_FAILURE(status)) return;
  std::int32_t count = 0;
  const icu::UnicodeString* names =
      symbols.getMonths(count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
  for (std::int32_t i = 0; i < count && i < 12; ++i) {
    locale.Months[static_cast<std::size_t>(i)] = ToText(names[i]);
  }
  names = symbols.getWeekdays(count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
  for (std::int32_t i = 1; i < count && i <= 7; ++i) {  // the first of them is a filler
    locale.Weekdays[static_cast<std::size_t>(i) - 1] = ToText(names[i]);
  }
  names = symbols.getAmPmStrings(count);
  if (count >= 2) locale.Morning = ToText(names[0]), locale.Afternoon = ToText(names[1]);
}

void FillPatterns(const icu::Locale& system, Locale& locale) {
  using icu::DateFormat;
  locale.ShortDatePattern = PatternOf(DateFormat::createDateInstance(DateFormat::kShort, system),
                                      locale.ShortDatePattern);
  locale.LongTimePattern = PatternOf(DateFormat::createTimeInstance(DateFormat::kMedium, system),
                                     locale.LongTimePattern);
  locale.LongDatePattern =
      PatternOf(DateFormat::createDateInstance(DateFormat::kFull, system), locale.LongDatePattern);
}

/// The first of the two that is set to anything, else LANG.
std::string FromEnvironment(const char* all, const char* category) {
  for (const char* name : {all, category, "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace

Locale LocaleNamed(const std::string& numbers, const std::string& dates) {
  Locale locale;
  const std::string numberName = BareName(numbers), dateName = BareName(dates);
  if (!numberName.empty()) FillNumbers(Plain(numberName), locale);
  if (!dateName.empty()) {
    FillNames(Plain(dateName), locale);
    FillPatterns(Plain(dateName), locale);
  }
  return locale;
}

Locale SystemLocale() {
  if (const char* own = std::getenv("BRELMON_LOCALE"); own != nullptr && *own != '\0') {
    return LocaleNamed(own, own);
  }
  return LocaleNamed(FromEnvironment("LC_ALL", "LC_NUMERIC"), FromEnvironment("LC_ALL", "LC_TIME"));
}

}  // namespace brelmon::host
