// SPDX-License-Identifier: GPL-2.0-or-later
// Lines of media_list.txt that were meant for an item and are none.
#pragma once

#include <functional>
#include <optional>

#include "check/Finding.h"

namespace brelmon {

struct MediaSlip {
  Severity Grade;
  Text Wrong;
  Text Mended;  // the line
};

/// Judges a trimmed line that lacks colon or comma; nothing for a note. `isFile` tells whether a
/// path from the document's folder leads to a file.
std::optional<MediaSlip> SlipIn(const Text& line,
                                const std::function<bool(const Text& path)>& isFile);

/// An item's line; of a web address each colon is written as U+00DF.
Text MediaLine(const Text& name, Text location, const Text& code);
/// A last component without its extension.
Text StemOf(const Text& location);
/// Mends what stands before the two slashes of a web address; empty for one that is well.
Text WithScheme(const Text& address);

}  // namespace brelmon
