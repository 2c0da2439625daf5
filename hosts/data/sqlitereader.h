// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of a GeoPackage's table straight from SQLite: the same values as GDAL's features have,
// without the features.
#pragma once

#include "hosts/data/vectorsource.h"

namespace brelmon::data {

/// Every row under the clause, which was tried; null where GDAL has to read: other sources, fields
/// other than numbers and texts, clauses with functions that GDAL adds. Fails as ReadFeatures.
std::unique_ptr<columns::IBatchReader> ReadSqlite(const std::shared_ptr<VectorSource>& source,
                                                  const std::vector<std::size_t>& fields,
                                                  const Text& clause);

}  // namespace brelmon::data
