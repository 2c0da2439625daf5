// SPDX-License-Identifier: GPL-2.0-or-later
// How far a word is from the one that was meant; marks and letters that look alike.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/text.h"

namespace brelmon {

/// Letters put in, left out, exchanged or swapped with their neighbour, regardless of case.
std::size_t Edits(TextView one, TextView other);
/// The first of those with the fewest edits, `most` of them at the most.
std::optional<Text> Nearest(TextView word, const std::vector<Text>& among, std::size_t most);

/// Letters followed by an accent of their own (as some systems write file names) as one letter
/// each, where Windows-1252 has it.
Text Composed(TextView text);
/// Typographic quotation marks and dashes as those that queries and numbers have.
Text Straightened(TextView text);
/// Whether a control character other than a tab stands in the text.
bool HasInvisible(TextView text);
/// Without control characters, and with plain blanks for all others.
Text Visible(TextView text);

}  // namespace brelmon
