// SPDX-License-Identifier: GPL-2.0-or-later
// The unique values of a field on a cursor.
#pragma once

#include "platform/table.h"

namespace brelmon::columns {

/// One pass over the cursor, with memory in proportion to the distinct values. Values come in the
/// order in which they are first met. A field that the cursor lacks, a missing cursor or field
/// fails with 5; a cursor of another host with 13.
Ref<IDataStatistics> NewDataStatistics();

}  // namespace brelmon::columns
