// SPDX-License-Identifier: GPL-2.0-or-later
// Where-clauses of files in QGIS's own language, for providers that filter by nothing else.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "hosts/columns/batch.h"
#include "platform/text.h"

namespace brelmon::qgis {

/// An expression that holds for the same rows; nothing for a clause that has none such.
std::optional<QString> ExpressionOf(TextView clause, const std::vector<columns::Field>& fields);

}  // namespace brelmon::qgis
