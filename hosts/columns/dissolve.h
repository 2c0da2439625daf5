// SPDX-License-Identifier: GPL-2.0-or-later
// The one dissolve of all hosts: rows in, one record for each unique value of a field out.
#pragma once

#include <functional>

#include "hosts/columns/rows.h"
#include "platform/workspace.h"

namespace brelmon::columns {

/// What the tables of every host offer beside ITable: their rows as columns.
class IColumnTable : public virtual IObject {
 public:
  struct Rows {
    std::shared_ptr<IRowSource> source;
    RowRequest request;  // its fields are left to the reader
  };
  /// Those that the user sees: under the table's definition, with `selected` the selected ones
  /// among them. Fails as ITable::Search does.
  virtual Rows VisibleRows(bool selected) = 0;
};

/// Writes `folder`/`fileName` (a dBASE table; ".dbf" is added to a name without extension) and
/// gives its path. One column for each term of `summary` ("Minimum.NET, Count.NET, Sum.MAG") in
/// their order, a record for each unique value of `field` in ascending order, nulls first. Nulls
/// count in no statistic; a group without values has none. Variance and standard deviation divide
/// by n - 1 and are 0 for one value. Fails with 5 for a field or term that isn't there, 13 for a
/// statistic that the field hasn't, 52 for a name that no table can have, and as WriteDbfTable
/// does.
std::string Dissolve(const IColumnTable::Rows& rows, const Text& field, const Text& summary,
                     const std::string& folder, const Text& fileName);

/// Opens a table that was written; system path.
using DissolveResult = std::function<Ref<ITable>(const std::string& path)>;

/// Fails with 13 for a table of another host.
Ref<IBasicGeoprocessor> NewBasicGeoprocessor(DissolveResult open);

}  // namespace brelmon::columns
