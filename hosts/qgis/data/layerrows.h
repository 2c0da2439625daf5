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
  /// As it stands now. Kept as long as the file stays as it was and the layer is there.
  const std::shared_ptr<data::TableSource>& Of(const QgsVectorLayer& layer);
  /// Its path and what is wrong with it, as it was asked for last; empty for one that is whole or
  /// is none of those that are read. QGIS may show what it could read of it.
  const std::string& Damage() const { return damage_; }

 private:
  void Reopen(const QgsVectorLayer& layer, const QString& source);

  QString key_;
  std::string damage_;
  std::shared_ptr<data::TableSource> source_;
  std::optional<bool> alike_;
  QObject layerLives_;  // ends the connection to the layer with itself
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

/// Whether the layer's filter was set here, and its clause is known.
bool HasClause(const QgsVectorLayer& layer);
/// The layer's filter as a clause, as it was set here or as its provider has it.
Text FilterOf(const QgsVectorLayer& layer);
/// Fails with E_FAIL where the layer's provider can't filter by it.
void SetFilter(QgsVectorLayer& layer, const Text& clause);

/// The clause of a filter; empty for an unset one and for blanks.
Text ClauseOf(const Ref<IQueryFilter>& filter);

}  // namespace brelmon::qgis
