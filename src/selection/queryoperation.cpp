// SPDX-License-Identifier: GPL-2.0-or-later
// Selection methods and filter texts of the five set operations.
#include "selection/queryoperation.h"

namespace brelmon {

QueryOperation ComposeOperation(SetOperation operation, const Text& query,
                                const Text& oldDefinition) {
  const Text old = u"(" + oldDefinition + u")";
  const Text added = u"(" + query + u")";
  switch (operation) {
    case SetOperation::New:
      return {SelectionMethod::New, query};
    case SetOperation::Add:
      return {SelectionMethod::Add, oldDefinition.empty() ? query : old + u" OR " + added};
    case SetOperation::Subtract:
      return {SelectionMethod::Subtract, old + u" AND " + added};
    case SetOperation::SelectFrom:
      return {SelectionMethod::And, old + u" AND NOT " + added};
    case SetOperation::Clear:
      break;
  }
  return {SelectionMethod::New, {}};
}

}  // namespace brelmon
