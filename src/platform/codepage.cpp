// SPDX-License-Identifier: GPL-2.0-or-later
// Windows-1252 both ways.
#include "platform/codepage.h"

#include <algorithm>
#include <array>
#include <optional>

namespace brelmon {
namespace {

// Bytes 0x80 to 0x9F; every other byte is the unit of its own value.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool InUpperControls(unsigned code) { return code >= 0x80 && code <= 0x9F; }

std::optional<char> ByteOf(char16_t unit) {
  if (unit <= 0xFF && !InUpperControls(unit)) return static_cast<char>(unit);
  const auto hit = std::ranges::find(kUpperControls, unit);
  if (hit == kUpperControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (hit - kUpperControls.begin()));
}

bool IsPairAt(TextView text, std::size_t at) {
  return (text[at] & 0xFC00) == 0xD800 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
}

}  // namespace

Text FromWindows1252(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    text += InUpperControls(code) ? kUpperControls[code - 0x80u] : char16_t{code};
  }
  return text;
}

std::string ToWindows1252(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    bytes += ByteOf(text[at]).value_or('?');
    if (IsPairAt(text, at)) ++at;
  }
  return bytes;
}

Text FirstMisfit(TextView text) {
  const auto hit =
      std::ranges::find_if(text, [](char16_t unit) { return !ByteOf(unit).has_value(); });
  const auto at = static_cast<std::size_t>(hit - text.begin());
  return Text(hit == text.end() ? TextView() : text.substr(at, IsPairAt(text, at) ? 2 : 1));
}

bool FitsWindows1252(TextView text) { return FirstMisfit(text).empty(); }

}  // namespace brelmon
