// SPDX-License-Identifier: GPL-2.0-or-later
// The empty value that a row handed out last: what a failure over a null is about.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/text.h"

namespace brelmon::columns {

/// `table` is what the user calls it, empty where nobody has told; a row may be known by no number.
void NoteEmptyValue(const Text& table, const Text& field, std::optional<std::int64_t> record);
/// Nothing that was noted before is meant from now on.
void ForgetEmptyValue();

/// For a failure's text that is about a null: the same, and which value is empty, as long as one is
/// noted. Any other text as it is.
Text WithEmptyValue(Text trail);

}  // namespace brelmon::columns
