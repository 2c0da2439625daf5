// SPDX-License-Identifier: GPL-2.0-or-later
// What a where-clause mentions. Some sources take a misspelt field in double quotes for a text
// and keep every row, so a host looks at the names itself before it trusts a source's answer.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace brelmon::columns {

struct ClauseNames {
  /// Field names in order, as they are spelt between their marks; the last part of a dotted name.
  std::vector<Text> fields;
  /// Why the clause can't stand by itself: an open quote, parentheses that don't pair, a second
  /// statement, a function that isn't known to look at its arguments alone, LIMIT and what else
  /// goes on behind a condition. Empty where nothing is wrong.
  std::string fault;
};

/// Strings in '...', names in "..." (also `...` and [...]), bare words that are neither keywords,
/// functions nor numbers. Names inside a nested SELECT belong to other tables and are left out.
ClauseNames NamesIn(TextView clause);

/// The first name of the clause that is no field, regardless of case.
std::optional<Text> UnknownField(const ClauseNames& names, const std::vector<Text>& fields);

bool IsBlank(TextView clause);

}  // namespace brelmon::columns
