// SPDX-License-Identifier: GPL-2.0-or-later
// Selection methods and filter texts of the five set operations.
#include "selection/queryoperation.h"

namespace brelmon {

QueryOperation ComposeOperation(const Text& optionName, const Text& query,
                                const Text& oldDefinition) {
  const Text old = u"(" + oldDefinition + u")";
  const Text added = u"(" + query + u")";
  if (optionName == u"Add") {
    return {SelectionMethod::Add, oldDefinition.empty() ? query : old + u" OR " + added};
  }
  if (optionName == u"Subtract") return {SelectionMethod::Subtract, old + u" AND " + added};
  if (optionName == u"Select From") return {SelectionMethod::And, old + u" AND NOT " + added};
  return {SelectionMethod::New, optionName == u"New" ? query : Text()};
}

}  // namespace brelmon
