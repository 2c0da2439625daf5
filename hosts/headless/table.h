// SPDX-License-Identifier: GPL-2.0-or-later
// Layers and tables of a map, over sources through GDAL.
#pragma once

#include "hosts/data/tablesource.h"
#include "hosts/document/table.h"

namespace brelmon::headless {

struct TableSettings : document::TableSettings {
  std::shared_ptr<data::TableSource> source;
  std::shared_ptr<const OGRSpatialReference> crs;  // null: the source's own
};

/// What every layer and table of this host offers beside the tools' interfaces.
class IHostTable : public virtual columns::IColumnTable {
 public:
  virtual const std::shared_ptr<data::TableSource>& Source() = 0;
  /// The reference system of its shapes; null where it is unknown.
  virtual const OGRSpatialReference* ReferenceSystem() = 0;
};

/// Offers all that IFeatureLayer tells of.
Ref<ILayer> NewFeatureLayer(TableSettings settings);
/// Offers all that IStandaloneTable tells of; Table() gives the object itself. Without a source it
/// is bound to nothing until SetTable.
Ref<IStandaloneTable> NewStandaloneTable(TableSettings settings = {});
/// The table alone, to be bound to a standalone table. Fails with 53 where there is no data.
Ref<ITable> OpenTable(const std::string& systemPath);

}  // namespace brelmon::headless
