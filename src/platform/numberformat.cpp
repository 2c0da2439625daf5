// SPDX-License-Identifier: GPL-2.0-or-later
// Decimal and scientific notation under the locale's symbols.
#include "platform/numberformat.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/number.h"
#include "platform/services.h"

namespace brelmon {
namespace {

constexpr std::size_t kGroup = 3;
// Digits, signs and symbols of any double before the decimal places.
constexpr std::size_t kRoom = 330;
constexpr std::int32_t kMostPlaces = 32767;

std::string Digits(double value, std::chars_format format, std::int32_t places) {
  if (places < 0 || places > kMostPlaces) Raise(failure::kInvalidCall, 0);
  std::string digits(kRoom + static_cast<std::size_t>(places), '\0');
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, format, places);
  digits.resize(static_cast<std::size_t>(end.ptr - digits.data()));
  return digits;
}

void DropTrailingZeros(std::string& digits) {
  if (digits.find('.') == std::string::npos) return;
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.back() == '.') digits.pop_back();
}

/// Puts the locale's symbols into plain digits.
Text Localized(const std::string& digits, bool groups) {
  const std::size_t whole = std::min(digits.find('.'), digits.size());
  Text text;
  for (std::size_t at = 0; at < whole; ++at) {
    if (groups && at > 0 && (whole - at) % kGroup == 0) text += CurrentLocale().GroupSymbol;
    text += static_cast<char16_t>(digits[at]);
  }
  if (whole < digits.size()) {
    text += CurrentLocale().DecimalSymbol;
    text.append(digits.begin() + static_cast<std::ptrdiff_t>(whole) + 1, digits.end());
  }
  return text;
}

}  // namespace

Text NumericFormat::ValueToString(double value) const {
  if (RoundingOption != 0) Raise(failure::kInvalidCall, 0);
  if (AlignmentOption < 0 || AlignmentOption > 1) Raise(failure::kInvalidCall, 0);
  Text text;
  if (std::isfinite(value)) {
    std::string digits = Digits(std::fabs(value), std::chars_format::fixed, RoundingValue);
    if (!ZeroPad) DropTrailingZeros(digits);
    if (value < 0) text = u"-";
    if (value > 0 && ShowPlusSign) text = u"+";
    text += Localized(digits, UseSeparator);
  } else {
    text = GeneralText(value);
  }
  const auto width = static_cast<std::size_t>(std::max(AlignmentWidth, 0));
  const Text blanks(width > text.size() ? width - text.size() : 0, u' ');
  return AlignmentOption == 0 ? blanks + text : text + blanks;
}

Text ScientificNumberFormat::ValueToString(double value) const {
  if (!std::isfinite(value)) return GeneralText(value);
  return Localized(Digits(value, std::chars_format::scientific, DecimalPlaces), false);
}

}  // namespace brelmon
