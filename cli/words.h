// SPDX-License-Identifier: GPL-2.0-or-later
// A session's line as words, quoted as in a shell.
#pragma once

#include <string>
#include <vector>

namespace brelmon::cli {

/// Blanks part words; '...' keeps everything, "..." everything but \" and \\, a backslash the unit
/// behind it; # at the start of a word begins a comment, unless the word is one of the numbers
/// that stand behind an action ("fields #3"). Throws std::runtime_error on an open quote.
std::vector<std::string> SplitWords(const std::string& line);

}  // namespace brelmon::cli
