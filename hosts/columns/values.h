// SPDX-License-Identifier: GPL-2.0-or-later
// Values of columns in the platform's terms.
#pragma once

#include "hosts/columns/batch.h"
#include "platform/value.h"

namespace brelmon::columns {

/// 32 bits where they do, else a double.
Value WholeNumber(std::int64_t number);

/// Seconds are rounded, half a second up.
Date DateOf(const Moment& moment);

/// A null where there is one; empty for a column that wasn't read. Bytes fail with 13.
Value ValueAt(const Column& column, const Field& field, std::size_t row);

}  // namespace brelmon::columns
