// SPDX-License-Identifier: GPL-2.0-or-later
// Where-clauses of files: by our own evaluator, and by GDAL's where that one doesn't know enough.
#pragma once

#include <memory>

#include "hosts/columns/where.h"

namespace brelmon::data {

/// Never null. Fails with E_FAIL and the reason for a clause that is refused.
std::unique_ptr<columns::Where> WhereOf(TextView clause, const std::vector<columns::Field>& fields);

}  // namespace brelmon::data
