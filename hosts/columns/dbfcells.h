// SPDX-License-Identifier: GPL-2.0-or-later
// What stands plainly in a field of a dBASE record.
#pragma once

#include <string_view>

#include "hosts/columns/batch.h"

namespace brelmon::columns {

/// `Odd` is anything whose reading calls for more than blanks, digits and texts.
enum class DbfCell { Value, Null, Odd };

DbfCell WholeCell(std::string_view bytes, std::int64_t& value);
DbfCell RealCell(std::string_view bytes, double& value);
DbfCell DateCell(std::string_view bytes, Moment& value);
/// As it stands in the file, without blanks at both ends.
DbfCell TextCell(std::string_view bytes, std::string_view& value);

}  // namespace brelmon::columns
