// SPDX-License-Identifier: GPL-2.0-or-later
// Conditions on numbers: fields, record numbers, constants and what is reckoned from them.
#pragma once

#include "hosts/columns/conditions.h"

namespace brelmon::columns {

/// As CompileCondition, for a comparison of two numbers.
ConditionPtr CompareNumbers(const ClauseNode& node, const std::vector<Field>& fields,
                            std::vector<std::size_t>& tested);
/// The same for IN and BETWEEN over constants.
ConditionPtr ListOrRangeOfNumbers(const ClauseNode& node, const std::vector<Field>& fields,
                                  std::vector<std::size_t>& tested);

}  // namespace brelmon::columns
