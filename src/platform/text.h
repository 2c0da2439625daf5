// SPDX-License-Identifier: GPL-2.0-or-later
// Text of 16-bit units, and the comparisons that do not depend on a locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brelmon {

/// A string of 16-bit units (UTF-16 where it comes from or goes to a host).
using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr TextView kCrLf = u"\r\n";

/// Widens UTF-8; a malformed sequence becomes U+FFFD, never a failure.
Text FromUtf8(std::string_view utf8);
/// The inverse; a lone surrogate becomes U+FFFD.
std::string ToUtf8(TextView text);

/// Without the blanks (U+0020 alone) at both ends.
Text Trim(TextView text);

/// Simple Unicode case folding of one unit (no expansion: U+00DF stays itself).
char16_t FoldCase(char16_t unit);
/// Negative, 0 or positive: folded units first, unit by unit.
int CompareNoCase(TextView left, TextView right);
inline bool EqualNoCase(TextView left, TextView right) { return CompareNoCase(left, right) == 0; }
/// Offset of the first hit from `from` on, regardless of case; Text::npos if there is none.
std::size_t FindNoCase(TextView text, TextView pattern, std::size_t from = 0);

}  // namespace brelmon
