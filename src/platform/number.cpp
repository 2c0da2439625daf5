// SPDX-License-Identifier: GPL-2.0-or-later
// General text of numbers, and the one conversion back.
#include "platform/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "platform/failure.h"
#include "platform/services.h"

namespace brelmon {
namespace {

constexpr int kSignificantDigits = 15;

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }

enum class Outcome { Number, NoNumber, Overflow };

/// Reads a numeral of the locale into the plain form that std::from_chars takes.
class Numeral {
 public:
  explicit Numeral(TextView text) : rest_(text) {}

  Outcome Read(double& value) {
    SkipBlanks();
    Sign(false);
    const bool whole = IntegerPart();
    const bool fraction = Fraction();  // also behind a whole part
    if (!(whole || fraction) || !Exponent()) return Outcome::NoNumber;
    SkipBlanks();
    if (!rest_.empty()) return Outcome::NoNumber;
    const auto done = std::from_chars(plain_.data(), plain_.data() + plain_.size(), value);
    if (done.ec == std::errc()) return Outcome::Number;
    if (order_ + exponent_ > 0) return Outcome::Overflow;
    value = 0;  // too small for a double
    return Outcome::Number;
  }

 private:
  bool Take(char16_t unit) {
    if (rest_.empty() || rest_.front() != unit) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void SkipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }
  bool Sign(bool ofExponent) {
    const bool negative = Take(u'-');
    if (negative) plain_ += '-';
    if (!negative && Take(u'+') && ofExponent) plain_ += '+';
    return negative;
  }
  bool NextIsDigit() const { return !rest_.empty() && IsDigit(rest_.front()); }
  int TakeDigit() {
    plain_ += static_cast<char>(rest_.front());
    rest_.remove_prefix(1);
    return plain_.back() - '0';
  }

  bool IntegerPart() {
    bool any = false;
    while (NextIsDigit() || (any && Take(CurrentLocale().GroupSymbol))) {
      if (!NextIsDigit()) continue;
      any = true;
      significant_ |= TakeDigit() != 0;
      order_ += significant_ ? 1 : 0;
    }
    return any;
  }
  bool Fraction() {
    if (!Take(CurrentLocale().DecimalSymbol)) return false;
    plain_ += '.';
    bool any = false;
    for (; NextIsDigit(); any = true) {
      significant_ |= TakeDigit() != 0;
      order_ -= significant_ ? 0 : 1;
    }
    return any;
  }
  /// False where a letter is not followed by a number.
  bool Exponent() {
    if (!(Take(u'e') || Take(u'E') || Take(u'd') || Take(u'D'))) return true;
    plain_ += 'e';
    const bool negative = Sign(true);
    if (!NextIsDigit()) return false;
    while (NextIsDigit()) exponent_ = std::min<long>(exponent_ * 10 + TakeDigit(), 1'000'000'000);
    if (negative) exponent_ = -exponent_;
    return true;
  }

  TextView rest_;
  std::string plain_;
  bool significant_ = false;  // a digit other than 0 was seen
  long order_ = 0;            // of magnitude, as the mantissa is written
  long exponent_ = 0;
};

}  // namespace

Text GeneralText(double value) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value < 0 ? u"-Infinity" : u"Infinity";
  if (value == 0) return u"0";
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general,
                                 kSignificantDigits);
  Text text(digits, end.ptr);
  std::ranges::replace(text, u'e', u'E');
  std::ranges::replace(text, u'.', CurrentLocale().DecimalSymbol);
  return text;
}

Text GeneralText(std::int32_t value) {
  const std::string digits = std::to_string(value);
  return Text(digits.begin(), digits.end());
}

Text GeneralText(bool value) { return value ? u"True" : u"False"; }

std::optional<double> ParseNumber(TextView text) {
  double value = 0;
  if (Numeral(text).Read(value) != Outcome::Number) return std::nullopt;
  return value;
}

double ToDouble(TextView text, std::int32_t line, const char* file) {
  double value = 0;
  switch (Numeral(text).Read(value)) {
    case Outcome::Number:
      return value;
    case Outcome::NoNumber:
      Raise(failure::kTypeMismatch, line, file);
    case Outcome::Overflow:
      break;
  }
  Raise(failure::kOverflow, line, file);
}

std::int32_t ToLong(double value, std::int32_t line, const char* file) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double whole = std::nearbyint(value);
  if (!(whole >= Limits::min() && whole <= Limits::max())) Raise(failure::kOverflow, line, file);
  return static_cast<std::int32_t>(whole);
}

std::int32_t ToLong(TextView text, std::int32_t line, const char* file) {
  return ToLong(ToDouble(text, line, file), line, file);
}

std::int16_t ToInteger(TextView text, std::int32_t line, const char* file) {
  using Limits = std::numeric_limits<std::int16_t>;
  const std::int32_t whole = ToLong(text, line, file);
  if (whole < Limits::min() || whole > Limits::max()) Raise(failure::kOverflow, line, file);
  return static_cast<std::int16_t>(whole);
}

}  // namespace brelmon
