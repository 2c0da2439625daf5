// SPDX-License-Identifier: GPL-2.0-or-later
// Trying a query on a second handle of a layer, so that the user's own layer is never touched.
#pragma once

#include <qgsvectorlayer.h>

#include <memory>

#include "platform/table.h"

namespace brelmon::qgis {

/// A second handle of `layer` that holds the rows of `definition` (all of them if blank).
/// Fails with E_FAIL where the source can't parse it or where it names a field that isn't there.
std::unique_ptr<QgsVectorLayer> WithDefinition(const QgsVectorLayer& layer, const Text& definition);
/// The same with the rows of the layer's own filter that satisfy `clause`.
std::unique_ptr<QgsVectorLayer> WithClause(const QgsVectorLayer& layer, const Text& clause);

/// Number of rows, counted where the source doesn't know.
std::int32_t CountRows(const QgsVectorLayer& layer);

/// Rows under the layer's filter that satisfy `filter`, whose shape is in the map's coordinates.
QgsFeatureIds MatchingIds(QgsVectorLayer& layer, const Ref<IQueryFilter>& filter, bool justOne);

/// The clause of a filter; empty for an unset one and for blanks.
Text ClauseOf(const Ref<IQueryFilter>& filter);

}  // namespace brelmon::qgis
