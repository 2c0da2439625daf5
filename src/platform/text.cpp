// SPDX-License-Identifier: GPL-2.0-or-later
// Widening and narrowing of UTF-8, and comparison without regard to case.
#include "platform/text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/casefolding.h"

namespace brelmon {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void Append(Text& text, char32_t code) {
  if (code < 0x10000) {
    text += static_cast<char16_t>(code);
  } else {
    text += static_cast<char16_t>(0xD7C0 + (code >> 10));
    text += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
  }
}

void Append(std::string& utf8, char32_t code) {
  const auto trail = [&](int shift) { utf8 += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    utf8 += static_cast<char>(code);
  } else if (code < 0x800) {
    utf8 += static_cast<char>(0xC0 | code >> 6);
    trail(0);
  } else if (code < 0x10000) {
    utf8 += static_cast<char>(0xE0 | code >> 12);
    trail(6);
    trail(0);
  } else {
    utf8 += static_cast<char>(0xF0 | code >> 18);
    trail(12);
    trail(6);
    trail(0);
  }
}

/// What may follow a lead byte: how many trail bytes, and the bounds of the first of them, which
/// shut out overlong forms, surrogates and codes beyond Unicode (Unicode, table 3-7).
struct Lead {
  int trails;
  unsigned first, last;
};

Lead LeadOf(unsigned byte) {
  if (byte < 0xC2 || byte > 0xF4) return {-1, 0, 0};
  if (byte < 0xE0) return {1, 0x80, 0xBF};
  if (byte < 0xF0) return {2, byte == 0xE0 ? 0xA0u : 0x80u, byte == 0xED ? 0x9Fu : 0xBFu};
  return {3, byte == 0xF0 ? 0x90u : 0x80u, byte == 0xF4 ? 0x8Fu : 0xBFu};
}

/// The code at `at`, which moves behind what it took: a whole sequence, or the part of one that
/// could have begun it.
char32_t NextCode(std::string_view utf8, std::size_t& at) {
  const unsigned byte = static_cast<unsigned char>(utf8[at++]);
  if (byte < 0x80) return byte;
  Lead lead = LeadOf(byte);
  if (lead.trails < 0) return kReplacement;
  char32_t code = byte & (0x3Fu >> lead.trails);
  for (; lead.trails > 0; --lead.trails) {
    const unsigned next = at < utf8.size() ? static_cast<unsigned char>(utf8[at]) : 0;
    if (next < lead.first || next > lead.last) return kReplacement;
    code = code << 6 | (next & 0x3F);
    lead.first = 0x80;
    lead.last = 0xBF;
    ++at;
  }
  return code;
}

bool IsHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

/// How many units at the beginning are ASCII.
template <class Units>
std::size_t PlainUnits(Units units) {
  const auto plain = [](auto unit) { return unit >= 0 && unit < 0x80; };
  return static_cast<std::size_t>(std::ranges::find_if_not(units, plain) - units.begin());
}

char16_t FoldBeyondAscii(char16_t unit) {
  const auto* range = std::ranges::lower_bound(kFoldRanges, unit, {}, &FoldRange::last);
  if (range == std::end(kFoldRanges) || unit < range->first) return unit;
  if ((unit - range->first) % range->stride != 0) return unit;
  return static_cast<char16_t>(unit + range->delta);
}

}  // namespace

Text FromUtf8(std::string_view utf8) {
  Text text;
  text.reserve(utf8.size());
  std::size_t at = PlainUnits(utf8);
  text.assign(utf8.begin(), utf8.begin() + static_cast<std::ptrdiff_t>(at));
  while (at < utf8.size()) Append(text, NextCode(utf8, at));
  return text;
}

std::string ToUtf8(TextView text) {
  std::string utf8;
  utf8.reserve(text.size());
  std::size_t at = PlainUnits(text);
  utf8.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at));
  for (; at < text.size(); ++at) {
    char32_t code = text[at];
    if (IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1])) {
      code = 0x10000 + ((code & 0x3FF) << 10) + (text[++at] & 0x3FF);
    } else if (IsHigh(text[at]) || IsLow(text[at])) {
      code = kReplacement;
    }
    Append(utf8, code);
  }
  return utf8;
}

Text Trim(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

char16_t FoldCase(char16_t unit) {
  if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
  return FoldBeyondAscii(unit);
}

int CompareNoCase(TextView left, TextView right) {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t at = 0; at < common; ++at) {
    if (left[at] == right[at]) continue;
    const int difference = FoldCase(left[at]) - FoldCase(right[at]);
    if (difference != 0) return difference;
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

std::size_t FindNoCase(TextView text, TextView pattern, std::size_t from) {
  if (from > text.size()) return Text::npos;
  const auto hit = std::search(
      text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), pattern.begin(), pattern.end(),
      [](char16_t one, char16_t other) { return FoldCase(one) == FoldCase(other); });
  if (hit == text.end() && !pattern.empty()) return Text::npos;
  return static_cast<std::size_t>(hit - text.begin());
}

}  // namespace brelmon
