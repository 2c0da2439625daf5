// SPDX-License-Identifier: GPL-2.0-or-later
// The browser's locale from what the page has found out.
#include "hosts/web/browserlocale.h"

namespace brelmon::web {
namespace {

void TakeText(const Message& settings, const char* key, Text& into) {
  const Text text = settings.TextAt(key);
  if (!text.empty()) into = text;
}

void TakeUnit(const Message& settings, const char* key, char16_t& into) {
  const Text text = settings.TextAt(key);
  if (text.size() == 1) into = text[0];
}

template <std::size_t Size>
void TakeNames(const Message& settings, const char* key, std::array<Text, Size>& into) {
  const std::vector<std::string> names = settings.TextsAt(key);
  if (names.size() != Size) return;
  for (std::size_t i = 0; i < Size; ++i) into[i] = FromUtf8(names[i]);
}

}  // namespace

Locale LocaleOf(const Message& settings) {
  Locale locale;
  TakeUnit(settings, "decimal", locale.DecimalSymbol);
  TakeUnit(settings, "group", locale.GroupSymbol);
  TakeText(settings, "shortDate", locale.ShortDatePattern);
  TakeText(settings, "longTime", locale.LongTimePattern);
  TakeText(settings, "longDate", locale.LongDatePattern);
  TakeText(settings, "morning", locale.Morning);
  TakeText(settings, "afternoon", locale.Afternoon);
  TakeNames(settings, "months", locale.Months);
  TakeNames(settings, "weekdays", locale.Weekdays);
  return locale;
}

}  // namespace brelmon::web
