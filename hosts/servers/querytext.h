// SPDX-License-Identifier: GPL-2.0-or-later
// Texts of statements: names, and whether a query's text is what it seems.
#pragma once

#include <string>

#include "platform/text.h"

namespace brelmon::servers {

std::string QuotedName(const std::string& name);

/// Why a clause is refused before any server sees it: spellings that the server's language reads in
/// other words than our own reader, so that something could hide in them. Empty where nothing is.
std::string OddSpelling(TextView clause);

/// Whether fields in it may be called by their table's name too.
bool NamesTables(TextView clause);

}  // namespace brelmon::servers
