// SPDX-License-Identifier: GPL-2.0-or-later
// Digits first: nearly every number is some of them, flush right.
#include "hosts/columns/dbfcells.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace brelmon::columns {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What C would take for the text, without blanks at both ends.
std::string_view Bare(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\0'));
  const auto isBlank = [](char c) { return c == ' '; };
  const auto first = std::find_if_not(bytes.begin(), bytes.end(), isBlank);
  const auto last = std::find_if_not(bytes.rbegin(), bytes.rend(), isBlank);
  if (first == bytes.end()) return {};
  return bytes.substr(static_cast<std::size_t>(first - bytes.begin()),
                      static_cast<std::size_t>(last.base() - first));
}

/// Whether a number is written as programs write it, not as a word or in another base.
bool IsUsual(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return IsDigit(c) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
  });
}

template <class Number>
bool Parse(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

/// Blanks, a minus, digits and a point up to the end of the field; nothing else.
struct PlainNumber {
  bool found = false, negative = false;
  std::uint64_t digits = 0;  // as if there were no point
  int count = 0, decimals = 0;

  explicit PlainNumber(std::string_view bytes) {
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at != end && *at == ' ') ++at;
    negative = at != end && *at == '-';
    if (negative) ++at;
    for (; at != end && IsDigit(*at); ++at, ++count) digits = digits * 10 + Digit(*at);
    const int whole = count;
    if (whole > 0 && at != end && *at == '.') {
      for (++at; at != end && IsDigit(*at); ++at, ++count) digits = digits * 10 + Digit(*at);
      decimals = count - whole;
    }
    found = at == end && whole > 0;
  }

 private:
  static std::uint64_t Digit(char c) { return static_cast<std::uint64_t>(c - '0'); }
};

constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t kExact = std::uint64_t{1} << 53;

/// The quotient of both, rounded once, where that can be told; a long double of 64 bits holds
/// either exactly.
bool Quotient(std::uint64_t digits, int decimals, double& value) {
  if (digits <= kExact) {
    value = static_cast<double>(digits) / kPowers[decimals];
    return true;
  }
  using Long = long double;
  if constexpr (std::numeric_limits<Long>::digits != 64) return false;
  const Long quotient = static_cast<Long>(digits) / static_cast<Long>(kPowers[decimals]);
  std::uint64_t mantissa = 0;
  std::memcpy(&mantissa, &quotient, sizeof mantissa);
  // Just between two doubles it may have been rounded there.
  if ((mantissa & 0x7FF) == 0x400) return false;
  value = static_cast<double>(quotient);
  return true;
}

}  // namespace

DbfCell WholeCell(std::string_view bytes, std::int64_t& value) {
  const PlainNumber plain(bytes);
  if (plain.found && plain.decimals == 0 && plain.count <= 18) {
    value = static_cast<std::int64_t>(plain.digits);
    if (plain.negative) value = -value;
    return bytes.back() == '.' ? DbfCell::Odd : DbfCell::Value;
  }
  const std::string_view text = Bare(bytes);
  if (text.empty()) return DbfCell::Null;
  return Parse(text, value) ? DbfCell::Value : DbfCell::Odd;
}

DbfCell RealCell(std::string_view bytes, double& value) {
  const PlainNumber plain(bytes);
  if (plain.found && plain.count <= 19 && Quotient(plain.digits, plain.decimals, value)) {
    if (plain.negative) value = -value;
    return DbfCell::Value;
  }
  const std::string_view text = Bare(bytes);
  if (text.empty()) return DbfCell::Null;
  return IsUsual(text) && Parse(text, value) ? DbfCell::Value : DbfCell::Odd;
}

DbfCell DateCell(std::string_view bytes, Moment& value) {
  const std::string_view text = Bare(bytes);
  if (text.empty()) return DbfCell::Null;
  if (text.size() != 8 || !std::all_of(text.begin(), text.end(), IsDigit)) return DbfCell::Odd;
  value = {};
  Parse(text.substr(0, 4), value.Year);
  Parse(text.substr(4, 2), value.Month);
  Parse(text.substr(6, 2), value.Day);
  const bool usual =
      value.Year > 0 && value.Month >= 1 && value.Month <= 12 && value.Day >= 1 && value.Day <= 31;
  return usual ? DbfCell::Value : DbfCell::Odd;
}

DbfCell TextCell(std::string_view bytes, std::string_view& value) {
  value = Bare(bytes);
  return value.empty() ? DbfCell::Null : DbfCell::Value;
}

}  // namespace brelmon::columns
