// SPDX-License-Identifier: GPL-2.0-or-later
// The five ways in which a query meets what is selected or filtered already.
#pragma once

#include "platform/table.h"

namespace brelmon {

enum class SetOperation { New, Add, Subtract, SelectFrom, Clear };

/// Title of the box that tells of a query which the source took.
inline constexpr TextView kVerifiedTitle = u"Query Verified:";

/// What one set button does: to a selection by method, to a filter by text.
struct QueryOperation {
  SelectionMethod Method;
  Text Definition;
};

/// On a filter, Subtract keeps the rows that match and SelectFrom removes them, the reverse of what
/// both do to a selection.
QueryOperation ComposeOperation(SetOperation operation, const Text& query,
                                const Text& oldDefinition);

}  // namespace brelmon
