// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS numbers the rows of some layers in a way of its own; their source goes by its key.
#pragma once

#include <qgsvectorlayer.h>

#include "hosts/data/tablesource.h"

namespace brelmon::qgis {

/// Whether each can be told from the other: always for files; for a table on a server where both go
/// by the same column.
bool KnowsIds(const QgsVectorLayer& layer, const data::TableSource& source);

/// Ascending; rows that are gone are left out.
columns::RowIds IdsInSource(const QgsVectorLayer& layer, const data::TableSource& source,
                            columns::RowIds shown);
columns::RowIds IdsShown(const QgsVectorLayer& layer, const data::TableSource& source,
                         columns::RowIds own);

}  // namespace brelmon::qgis
