// SPDX-License-Identifier: GPL-2.0-or-later
// A dBASE table's header and records as bytes.
#pragma once

#include "hosts/columns/dbftable.h"

namespace brelmon::columns {

/// With the present day as the day of the last change. Fails with 6 for a name that the page can't
/// hold in ten bytes.
std::string DbfHeader(const std::vector<DbfColumn>& columns, const CodePage& page,
                      std::size_t records);

/// Values of columns that were fitted: texts are bytes of the page, widths and decimals hold them.
void AppendRecord(const std::vector<DbfColumn>& columns, std::size_t record, std::string& bytes);

}  // namespace brelmon::columns
