// SPDX-License-Identifier: GPL-2.0-or-later
// Text, path and field helpers without state. Each guards itself: after a failure it shows the
// trail and gives the default result.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/table.h"
#include "platform/text.h"
#include "platform/value.h"

namespace brelmon {

/// What follows the first occurrence of the pattern, regarding case; empty if there is none.
Text After(TextView text, TextView pattern);
/// What precedes it; empty if there is none.
Text Before(TextView text, TextView pattern);

/// Removes the pattern, going on at the place of each hit: "aabb" less "ab" leaves "ab".
/// An empty pattern removes nothing.
Text Subst(TextView text, TextView pattern);
/// Overwrites, from each hit on, as many characters as the replacement has; the length stays. An
/// empty pattern or replacement changes nothing.
Text Subst(TextView text, TextView pattern, TextView replacement);

/// Drops from the end what stands in `rightSet`, then from the start what stands in `leftSet`,
/// regardless of case. Changes `text` and gives it back.
Text BasicTrimAvenue(Text& text, TextView leftSet, TextView rightSet);

/// A comma every three characters left of the first "."; a minus sign counts as a digit
/// ("-,123"). Null fails.
Text InsertCommas(const Value& number);

/// Splits at the delimiter. Runs of blank tokens give none; from the first apostrophe on nothing is
/// split, and the first pair of apostrophes is blanked. Nothing but blanks and delimiters leaves
/// `tokens` empty, so that asking for its first fails. Never fails itself.
void ParseString(TextView text, std::vector<Text>& tokens, char16_t delimiter);

/// The folder with a closing backslash; a bare file name comes back with one behind it.
Text ReturnDir(TextView path);
/// The last component.
Text ReturnFilename(TextView path);
/// The long form of a path; the path itself where the system gives none.
Text GetFullFileString(const Text& path);
/// Whether a file or folder is there. Never fails.
bool ExistFileDir(const Text& path);
/// The path itself, or with _2, _3... before an extension of up to four characters.
Text MakeUniqueFilename(const Text& path);
/// The system's temporary folder; empty if it has none.
Text TempPathLocation();
/// The login name; empty if there is none.
Text GetTheUserName();

/// A folder of the host's from the registry: 0 last browsed, 1 last exported, 2 last,
/// 3 last saved, 4 installed. Where it isn't found the result is a sentence that says so;
/// for any other code it is empty.
Text ReturnArcGISGeneralDir(std::int32_t code);

/// Small integer, integer, single and double.
bool FieldIsNumeric(const Ref<IField>& field);

}  // namespace brelmon
