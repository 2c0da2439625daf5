// SPDX-License-Identifier: GPL-2.0-or-later
// The line that tells the host's dissolve what to compute.
#pragma once

#include <vector>

#include "platform/text.h"

namespace brelmon {

/// One ticked statistic of a field.
struct SummaryTerm {
  Text Statistic;  // as the tree names it
  Text Field;      // actual name
};

/// "Minimum.F, Count.F" and then the terms in their order, each "Word.FIELD". The host knows no
/// first and last: the tree's "First" is the minimum and its "Last" the maximum.
Text SummaryString(const Text& field, const std::vector<SummaryTerm>& terms);

}  // namespace brelmon
