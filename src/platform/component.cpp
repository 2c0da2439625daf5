// SPDX-License-Identifier: GPL-2.0-or-later
// Identifiers as texts.
#include "platform/component.h"

#include <algorithm>
#include <cstdio>

namespace brelmon {
namespace {

// Digits stand where the X are.
constexpr TextView kForm = u"{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";

int DigitOf(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  return -1;
}

}  // namespace

Text ToText(const Guid& guid) {
  char out[39];
  const auto& last = guid.Data4;
  std::snprintf(out, sizeof out, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(guid.Data1), guid.Data2, guid.Data3, last[0], last[1],
                last[2], last[3], last[4], last[5], last[6], last[7]);
  return FromUtf8(out);
}

bool ToGuid(TextView text, Guid& guid) {
  if (text.size() != kForm.size()) return false;
  std::array<std::uint8_t, 16> bytes{};
  std::size_t digits = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (kForm[at] != u'X') {
      if (text[at] != kForm[at]) return false;
      continue;
    }
    const int digit = DigitOf(text[at]);
    if (digit < 0) return false;
    bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] << 4 | digit);
    ++digits;
  }
  guid.Data1 = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
               std::uint32_t{bytes[2]} << 8 | bytes[3];
  guid.Data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
  guid.Data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
  std::copy(bytes.begin() + 8, bytes.end(), guid.Data4.begin());
  return true;
}

}  // namespace brelmon
