// SPDX-License-Identifier: GPL-2.0-or-later
// Widths of dBASE columns that lose nothing of their values.
#pragma once

#include "hosts/columns/dbftable.h"

namespace brelmon::columns {

/// Widens the column to its values. A column of dates of which one has a time of day becomes a text
/// column. Fails with 6 where dBASE can't hold a value, and says which.
void FitColumn(DbfColumn& column, const CodePage& page);

}  // namespace brelmon::columns
