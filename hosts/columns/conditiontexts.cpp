// SPDX-License-Identifier: GPL-2.0-or-later
// How texts and dates are compared.
#include <algorithm>
#include <charconv>

#include "hosts/columns/conditions.h"

namespace brelmon::columns {
namespace {

unsigned char Lower(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
}

bool Same(char one, char other, bool anyCase) {
  return anyCase ? Lower(one) == Lower(other) : one == other;
}

/// Whole digits of that count at the front, which are taken.
bool TakeNumber(std::string_view& text, std::size_t digits, int& number) {
  if (text.size() < digits) return false;
  const auto [end, error] = std::from_chars(text.data(), text.data() + digits, number);
  const bool whole = error == std::errc() && end == text.data() + digits && text[0] != '-';
  if (whole) text.remove_prefix(digits);
  return whole;
}

bool TakeMark(std::string_view& text, std::string_view marks) {
  if (text.empty() || marks.find(text[0]) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

int CompareTexts(std::string_view one, std::string_view other) {
  const std::size_t common = std::min(one.size(), other.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (one[i] == other[i]) continue;
    const int difference = Lower(one[i]) - Lower(other[i]);
    if (difference != 0) return difference;
  }
  return one.size() < other.size() ? -1 : one.size() > other.size() ? 1 : 0;
}

bool AreSame(std::string_view one, std::string_view other, bool anyCase) {
  if (one.size() != other.size()) return false;
  if (!anyCase) return one == other;
  for (std::size_t i = 0; i < one.size(); ++i) {
    if (one[i] != other[i] && Lower(one[i]) != Lower(other[i])) return false;
  }
  return true;
}

/// Goes back to the last % only, since an earlier one would leave less of the text. A % that isn't
/// the pattern's last needs a byte of the text to stand before.
bool IsLike(std::string_view text, std::string_view pattern, char escape, bool anyCase) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t i = 0, p = 0, behindAny = kNone, mark = 0;
  while (i < text.size()) {
    const char c = p < pattern.size() ? pattern[p] : 0;
    const bool escaped = escape != 0 && c == escape;
    if (p < pattern.size() && c == '%' && !escaped) {
      if (++p == pattern.size()) return true;
      behindAny = p;
      mark = i;
      continue;
    }
    const std::size_t at = p + (escaped ? 1 : 0);
    if (at < pattern.size() && ((c == '_' && !escaped) || Same(pattern[at], text[i], anyCase))) {
      p = at + 1;
      ++i;
      continue;
    }
    if (behindAny == kNone || ++mark == text.size()) return false;
    i = mark;
    p = behindAny;
  }
  return p == pattern.size() || pattern.substr(p) == "%";
}

bool ReadMoment(std::string_view text, Moment& moment) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (!TakeNumber(text, 4, year) || !TakeMark(text, "-/") || !TakeNumber(text, 2, month) ||
      !TakeMark(text, "-/") || !TakeNumber(text, 2, day)) {
    return false;
  }
  if (!text.empty()) {
    if (!TakeMark(text, " T") || !TakeNumber(text, 2, hour) || !TakeMark(text, ":") ||
        !TakeNumber(text, 2, minute)) {
      return false;
    }
    if (!text.empty() && (!TakeMark(text, ":") || !TakeNumber(text, 2, second))) return false;
  }
  const bool usual = text.empty() && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
                     hour < 24 && minute < 60 && second < 60 && year > 0;
  const auto byte = [](int part) { return static_cast<std::uint8_t>(part); };
  moment = {static_cast<std::int16_t>(year), byte(month), byte(day), byte(hour), byte(minute), 0,
            static_cast<float>(second)};
  return usual;
}

int CompareMoments(const Moment& one, const Moment& other) {
  const auto order = [](auto left, auto right) { return left < right ? -1 : left > right ? 1 : 0; };
  if (const int year = order(one.Year, other.Year)) return year;
  if (const int month = order(one.Month, other.Month)) return month;
  if (const int day = order(one.Day, other.Day)) return day;
  if (const int hour = order(one.Hour, other.Hour)) return hour;
  if (const int minute = order(one.Minute, other.Minute)) return minute;
  return order(one.Second, other.Second);
}

}  // namespace brelmon::columns
