// SPDX-License-Identifier: GPL-2.0-or-later
// Widths of dBASE columns that lose nothing of their values.
#pragma once

#include "hosts/common/dbftable.h"

namespace brelmon::host {

/// Widens the column to its values. A column of dates of which one has a time of day becomes a text
/// column. Fails with 6 where dBASE can't hold a value, and says which.
void FitColumn(DbfColumn& column, const std::string& encoding);

}  // namespace brelmon::host
