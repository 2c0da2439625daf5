// SPDX-License-Identifier: GPL-2.0-or-later
// The platform's cursor over batches of rows.
#pragma once

#include "hosts/columns/rows.h"

namespace brelmon::columns {

/// What the cursors of every host offer beside ICursor: their rows as columns.
class IColumnCursor : public virtual IObject {
 public:
  /// Index of the field of that name regardless of case; -1 if there is none.
  virtual std::int32_t FindField(const Text& name) = 0;
  virtual const std::vector<Field>& Fields() = 0;
  /// The values of this field in the rows that are still to come, in its column alone; one that
  /// repeats need not come again. The cursor has no rows afterwards.
  virtual std::unique_ptr<IBatchReader> TakeValues(std::size_t field) = 0;
};

/// Rows of a request whose fields are told by name: `subFields` holds names with commas between,
/// empty or "*" for all; one that isn't there fails with E_FAIL. Empty values are noted under the
/// name `table`.
Ref<ICursor> NewCursor(std::shared_ptr<IRowSource> source, RowRequest request,
                       const Text& subFields, bool recycling, Text table = {});

}  // namespace brelmon::columns
