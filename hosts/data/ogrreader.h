// SPDX-License-Identifier: GPL-2.0-or-later
// GDAL's features as columns.
#pragma once

#include "hosts/data/errorwatch.h"
#include "hosts/data/vectorsource.h"

namespace brelmon::data {

/// Every row under the clause, which goes to the source itself and must be blank for sources
/// without SQL of their own. Fails with 57, and the reason, where reading breaks off.
std::unique_ptr<columns::IBatchReader> ReadFeatures(const std::shared_ptr<VectorSource>& source,
                                                    const std::vector<std::size_t>& fields,
                                                    const Text& clause);

/// The rows of these identifiers that are there, fetched one by one.
std::unique_ptr<columns::IBatchReader> FetchFeatures(const std::shared_ptr<VectorSource>& source,
                                                     const std::vector<std::size_t>& fields,
                                                     std::shared_ptr<const columns::RowIds> ids);

/// Puts one value of a feature into its column.
void TakeValue(const VectorSource& source, const OGRFeature& feature, std::size_t field,
               columns::ColumnBuffer& column, std::size_t row, columns::TextRoom& texts);

/// Fails with 57 and the reason, if a failure was heard.
void CheckReading(const VectorSource& source, const ErrorWatch& watch);

}  // namespace brelmon::data
