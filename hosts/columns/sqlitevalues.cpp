// SPDX-License-Identifier: GPL-2.0-or-later
// Order of values, and how numbers and texts become each other.
#include "hosts/columns/sqlitevalues.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace brelmon::columns {
namespace {

using Kind = SqliteValue::Kind;

constexpr double kTwoTo63 = 9223372036854775808.0;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

template <class Number>
int Order(Number one, Number other) {
  return one < other ? -1 : one > other ? 1 : 0;
}

/// Exactly, though a double can't hold every whole number.
int CompareMixed(std::int64_t whole, double real) {
  if (real >= kTwoTo63) return -1;
  if (real < -kTwoTo63) return 1;
  const auto cut = static_cast<std::int64_t>(real);
  return whole == cut ? Order(static_cast<double>(cut), real) : Order(whole, cut);
}

/// The longest number at the front of a text, behind blanks; `size` is where it ends, 0 for none.
SqliteValue NumberAtFront(std::string_view text, std::size_t& size) {
  std::size_t at = 0;
  while (at < text.size() && IsSpace(text[at])) ++at;
  std::size_t from = at;
  const bool minus = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const std::size_t digits = at;
  const auto skip = [&] {
    const std::size_t first = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at - first;
  };
  std::size_t count = skip();
  bool whole = true;
  if (at < text.size() && text[at] == '.') {
    ++at;
    count += skip();
    whole = false;
  }
  size = 0;
  if (count == 0) return SqliteValue::Of(std::int64_t{0});
  if (at < text.size() && Lower(text[at]) == 'e') {
    const std::size_t before = at++;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    if (skip() == 0) {
      at = before;
    } else {
      whole = false;
    }
  }
  size = at;
  if (!minus) from = digits;
  const char* end = text.data() + at;
  std::int64_t number = 0;
  if (whole && std::from_chars(text.data() + from, end, number).ec == std::errc()) {
    return SqliteValue::Of(number);
  }
  // "5." and ".5" are numbers, too.
  std::string plain(text.substr(from, at - from));
  double real = 0;
  std::from_chars(plain.data(), plain.data() + plain.size(), real);
  return SqliteValue::Of(real);
}

}  // namespace

SqliteValue SqliteValue::Of(double number) {
  return std::isnan(number) ? SqliteValue() : SqliteValue{Kind::Real, 0, number, {}};
}

std::string_view Kept(MadeTexts& room, std::string text) {
  return room.emplace_back(std::move(text));
}

int CompareValues(const SqliteValue& one, const SqliteValue& other) {
  if (one.IsNumber() != other.IsNumber()) return one.IsNumber() ? -1 : 1;
  if (one.kind == Kind::Text) return one.text.compare(other.text);
  if (one.kind == other.kind) {
    return one.kind == Kind::Whole ? Order(one.whole, other.whole) : Order(one.real, other.real);
  }
  return one.kind == Kind::Whole ? CompareMixed(one.whole, other.real)
                                 : -CompareMixed(other.whole, one.real);
}

SqliteValue WithNumber(const SqliteValue& value) {
  if (value.kind != Kind::Text) return value;
  std::size_t size = 0;
  const SqliteValue number = NumberAtFront(value.text, size);
  const std::string_view rest = value.text.substr(size);
  return size > 0 && std::all_of(rest.begin(), rest.end(), IsSpace) ? number : value;
}

SqliteValue ToNumber(const SqliteValue& value) {
  std::size_t size = 0;
  return value.kind == Kind::Text ? NumberAtFront(value.text, size) : value;
}

SqliteValue ToWhole(const SqliteValue& value) {
  SqliteValue number = value;
  if (value.kind == Kind::Text) {
    // Of a text the digits alone count: '1e3' begins with 1.
    const std::size_t end = value.text.find_first_of(".eE");
    number = ToNumber(SqliteValue::Of(value.text.substr(0, end)));
  }
  if (number.kind != Kind::Real) return number;
  if (number.real >= kTwoTo63) return SqliteValue::Of(INT64_MAX);
  if (number.real <= -kTwoTo63) return SqliteValue::Of(INT64_MIN);
  return SqliteValue::Of(static_cast<std::int64_t>(number.real));
}

SqliteValue WithText(const SqliteValue& value, MadeTexts& room) {
  if (value.kind == Kind::Whole) return SqliteValue::Of(Kept(room, std::to_string(value.whole)));
  if (value.kind != Kind::Real) return value;
  if (std::isinf(value.real)) {
    return SqliteValue::Of(std::string_view(value.real > 0 ? "Inf" : "-Inf"));
  }
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.15g", value.real);
  std::string text = digits;
  // A real number shows that it is one.
  if (text.find('.') == std::string::npos) text.insert(std::min(text.find('e'), text.size()), ".0");
  return SqliteValue::Of(Kept(room, std::move(text)));
}

std::optional<bool> TruthOf(const SqliteValue& value) {
  if (value.IsNull()) return {};
  return ToNumber(value).AsReal() != 0;
}

std::size_t CharacterSize(std::string_view text) {
  std::size_t size = 1;
  if ((text[0] & 0x80) == 0) return size;
  while (size < text.size() && (text[size] & 0xC0) == 0x80) ++size;
  return size;
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool IsLikePattern(std::string_view text, std::string_view pattern, std::string_view escape) {
  // Where the last "%" stood, and what the text had left then: no more than one is ever gone back
  // to.
  std::optional<std::string_view> again;
  std::string_view left;
  for (;;) {
    if (pattern.empty() && text.empty()) return true;
    const bool any = !pattern.empty() && pattern[0] == '%' && escape != "%";
    if (any) {
      again = pattern.substr(1);
      left = text;
      pattern = *again;
      continue;
    }
    bool fits = !pattern.empty() && !text.empty();
    if (fits) {
      bool plain = false;
      std::string_view rest = pattern;
      if (!escape.empty() && rest.starts_with(escape)) {
        rest.remove_prefix(escape.size());
        plain = true;
        if (rest.empty()) return false;
      }
      const std::size_t want = CharacterSize(rest), have = CharacterSize(text);
      const bool one = !plain && rest[0] == '_';
      fits = one || (want == 1 ? have == 1 && Lower(rest[0]) == Lower(text[0])
                               : rest.substr(0, want) == text.substr(0, have));
      if (fits) {
        pattern = rest.substr(want);
        text.remove_prefix(have);
        continue;
      }
    }
    if (!again || left.empty()) return false;
    left.remove_prefix(CharacterSize(left));
    text = left;
    pattern = *again;
  }
}

}  // namespace brelmon::columns
