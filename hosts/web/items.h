// SPDX-License-Identifier: GPL-2.0-or-later
// Layers, tables and groups of a map, as the page lists and draws them.
#pragma once

#include "hosts/web/source.h"
#include "platform/map.h"

namespace brelmon::web {

/// What every item of the contents offers beside the tools' interfaces.
class IItem : public virtual IObject {
 public:
  /// The page's name for it: unique, and never given to another.
  virtual int Id() const = 0;
  virtual const ModuleItem& Facts() const = 0;
  virtual Text ShownName() = 0;
  virtual bool Checked() const = 0;
  virtual void SetChecked(bool checked) = 0;
};

/// What layers and tables with rows offer too.
class ITableItem : public virtual IItem {
 public:
  virtual const std::shared_ptr<Source>& Data() = 0;  // null while it is bound to nothing
  /// Changes with the selection and with the definition.
  virtual int Revision() const = 0;
  virtual const columns::RowIds& Selected() = 0;
  virtual Text Definition() = 0;
  /// A student's own choice of rows; identifiers ascending.
  virtual void Select(columns::RowIds ids, SelectionMethod method) = 0;
};

/// A group, a layer with shapes, a table, a raster or a layer of another kind.
Ref<IObject> NewItem(const ModuleItem& item, const Sources& sources);
/// Bound to nothing until SetTable.
Ref<IStandaloneTable> NewStandaloneTable();
/// The table alone, as SourceOfDbf reads it.
Ref<ITable> OpenTable(const std::string& systemPath, const Sources& sources);

/// Called when what the page shows of an item has changed.
void SetItemListener(std::function<void()> changed);

}  // namespace brelmon::web
