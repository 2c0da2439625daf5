// SPDX-License-Identifier: GPL-2.0-or-later
// Byte by byte: a page is small enough to be searched.
#include "hosts/columns/codepage.h"

#include <algorithm>

namespace brelmon::columns {

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool CodePage::ToUtf8(std::string_view bytes, std::string& utf8) const {
  if (utf8_ || IsAscii(bytes)) {
    utf8.append(bytes);
    return true;
  }
  const std::size_t before = utf8.size();
  for (const char byte : bytes) {
    const char16_t unit = units_[static_cast<unsigned char>(byte)];
    if (unit == 0) {
      utf8.resize(before);
      return false;
    }
    if (unit < 0x80) {
      utf8 += static_cast<char>(unit);
    } else if (unit < 0x800) {
      utf8 += static_cast<char>(0xC0 | (unit >> 6));
      utf8 += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | (unit >> 12));
      utf8 += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
      utf8 += static_cast<char>(0x80 | (unit & 0x3F));
    }
  }
  return true;
}

std::optional<std::string> CodePage::FromUtf8(std::string_view utf8) const {
  if (utf8_ || IsAscii(utf8)) return std::string(utf8);
  std::string bytes;
  for (const char16_t unit : brelmon::FromUtf8(utf8)) {
    const std::size_t byte = unit == 0 ? Text::npos : units_.find(unit);
    if (byte == Text::npos) return {};
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

}  // namespace brelmon::columns
