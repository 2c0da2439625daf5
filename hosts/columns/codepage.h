// SPDX-License-Identifier: GPL-2.0-or-later
// What the texts of a table are stored in.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace brelmon::columns {

/// UTF-8, a page of 256 characters, or another encoding that is known by its name alone.
class CodePage {
 public:
  CodePage() : name_("UTF-8"), utf8_(true) {}
  /// `units` by byte, 0 for a byte that stands for nothing; empty where they aren't known.
  CodePage(std::string name, Text units) : name_(std::move(name)), units_(std::move(units)) {}

  const std::string& Name() const { return name_; }
  bool IsUtf8() const { return utf8_; }
  /// Whether ToUtf8 and FromUtf8 can be asked at all.
  bool IsKnown() const { return utf8_ || !units_.empty(); }
  /// Appends the text to `utf8`; false, and nothing is appended, where a byte stands for nothing.
  bool ToUtf8(std::string_view bytes, std::string& utf8) const;
  /// Nothing where the page lacks a character.
  std::optional<std::string> FromUtf8(std::string_view utf8) const;

 private:
  std::string name_;
  bool utf8_ = false;
  Text units_;
};

bool IsAscii(std::string_view bytes);

}  // namespace brelmon::columns
