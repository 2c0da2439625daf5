// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS's features as columns.
#pragma once

#include <qgsvectorlayer.h>

#include "hosts/columns/batch.h"

namespace brelmon::qgis {

/// One column for each of the layer's attributes.
std::vector<columns::Field> ColumnsOf(const QgsVectorLayer& layer);

/// The rows under the layer's filter, unsaved edits included; `columns` are ColumnsOf's.
std::unique_ptr<columns::IBatchReader> ReadShown(QgsVectorLayer& layer,
                                                 std::vector<std::size_t> fields,
                                                 std::vector<columns::Field> columns);

/// Rows under the layer's filter whose shapes intersect `shape`, which is in the layer's system.
columns::RowIds TouchingIds(QgsVectorLayer& layer, const QgsGeometry& shape, bool justOne);

}  // namespace brelmon::qgis
