// SPDX-License-Identifier: GPL-2.0-or-later
// The unique values of a field on a cursor.
#pragma once

#include "platform/table.h"

namespace brelmon::host {

/// What a host's cursors offer beside ICursor: the place of a field in their rows.
class ICursorFields : public virtual IObject {
 public:
  /// Index of the field of that name regardless of case; -1 if there is none.
  virtual std::int32_t FindField(const Text& name) = 0;
  /// Tells that nothing but this field will be read, before the first row is asked for.
  virtual void ReadOnly(std::int32_t index) = 0;
};

/// One pass over the cursor, with memory in proportion to the distinct values. Values come in the
/// order in which they are first met. A field that the cursor lacks, a missing cursor or field
/// fails with 5.
Ref<IDataStatistics> NewDataStatistics();

}  // namespace brelmon::host
