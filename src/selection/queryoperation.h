// SPDX-License-Identifier: GPL-2.0-or-later
// The five ways in which a query meets what is selected or filtered already.
#pragma once

#include "platform/table.h"

namespace brelmon {

/// What one set button does: to a selection by method, to a filter by text.
struct QueryOperation {
  SelectionMethod Method;
  Text Definition;
};

/// `optionName` is "New", "Add", "Subtract", "Select From" or "Clear". On a filter, "Subtract"
/// keeps the rows that match and "Select From" removes them, the reverse of what both do to a
/// selection.
QueryOperation ComposeOperation(const Text& optionName, const Text& query,
                                const Text& oldDefinition);

}  // namespace brelmon
