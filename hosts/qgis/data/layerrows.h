// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of a vector layer as QGIS shows them: from its file or its table on a server where that says
// the same, else feature by feature.
#pragma once

#include <qgsvectorlayer.h>

#include "hosts/data/tablesource.h"
#include "platform/table.h"

namespace brelmon::qgis {

/// The file or the table on a server that a layer reads, opened a second time; null for layers that
/// read neither, or that show other rows or columns than it has.
class FileOfLayer {
 public:
  /// As it stands now. Kept as long as the file stays as it was.
  const std::shared_ptr<data::TableSource>& Of(const QgsVectorLayer& layer);

 private:
  QString key_;
  std::shared_ptr<data::TableSource> source_;
};

/// Whether unsaved edits, joins or virtual fields make the layer differ from what it reads.
bool ShowsOtherRows(const QgsVectorLayer& layer);

/// The rows under the layer's filter, unsaved edits included. `file` may be null. The layer must
/// outlive every reading.
std::shared_ptr<columns::IRowSource> RowsOf(QgsVectorLayer& layer,
                                            std::shared_ptr<data::TableSource> file);

/// Rows among them that satisfy `filter`, whose shape is in the map's coordinates. Fails with
/// E_FAIL for another shape field than the layer's.
columns::RowIds MatchingIds(QgsVectorLayer& layer, const std::shared_ptr<data::TableSource>& file,
                            const Ref<IQueryFilter>& filter, bool justOne);

/// The layer's filter as a clause, as it was set here or as its provider has it.
Text FilterOf(const QgsVectorLayer& layer);
/// Fails with E_FAIL where the layer's provider can't filter by it.
void SetFilter(QgsVectorLayer& layer, const Text& clause);

/// The clause of a filter; empty for an unset one and for blanks.
Text ClauseOf(const Ref<IQueryFilter>& filter);

}  // namespace brelmon::qgis
