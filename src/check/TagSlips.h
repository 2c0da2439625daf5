// SPDX-License-Identifier: GPL-2.0-or-later
// Lines of QuickLoad.txt that were meant for a tag and are none.
#pragma once

#include <vector>

#include "quickload/QuickLoadFile.h"

namespace brelmon {

/// The kind whose tag the line is, letter by letter.
const QuickLoadKind* TagOf(const Text& line);
/// Whether the lines look like the fields behind the kind's tag.
bool LooksLikeRecord(const QuickLoadKind& kind, const std::vector<Text>& lines);
/// The kind whose tag was meant: in other capitals, with blanks, in other brackets, misspelt. A
/// word without angle brackets counts if `below`, the lines that follow, look like such a record.
const QuickLoadKind* TagMeant(const Text& line, const std::vector<Text>& below);
/// What is wrong with a line that was meant for the kind's tag, in words.
Text SlipOf(const Text& line, const QuickLoadKind& kind);

}  // namespace brelmon
