// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of one table, wherever they come from.
#pragma once

#include <functional>

#include "hosts/columns/batch.h"
#include "hosts/columns/codepage.h"
#include "platform/text.h"

namespace brelmon::columns {

/// What to read. The clause was tried before; a blank one stands for all rows.
struct RowRequest {
  std::vector<std::size_t> Fields;  // columns to fill, by index in the table's fields
  Text Clause;
  std::shared_ptr<const RowIds> Only;  // no other rows, if set
  bool WithIds = true;                 // false where nobody looks at the batches' identifiers
};

class DissolveGroups;

/// A field of which each group is to tell something, and what beside count and extremes.
struct TalliedField {
  std::size_t Field = 0;
  bool Sum = false, Spread = false;
};

class IRowSource {
 public:
  virtual ~IRowSource() = default;
  virtual const std::vector<Field>& Fields() const = 0;
  /// What its texts are stored in.
  virtual const CodePage& Encoding() = 0;
  /// Fails with E_FAIL, and the reason, for a clause that the source can't parse or that names a
  /// field that isn't there.
  virtual void TryClause(TextView clause) = 0;
  virtual std::unique_ptr<IBatchReader> Read(const RowRequest& request) = 0;
  /// Rows under a clause that was tried.
  virtual std::int64_t CountRows(const Text& clause);
  virtual RowIds IdsOfRows(const Text& clause, bool justOne);
  /// As Read for one field; a value that repeats need not come again.
  virtual std::unique_ptr<IBatchReader> ReadValues(const RowRequest& request) {
    return Read(request);
  }
  /// Adds the rows to their groups where the source can group them itself; else gives false, has
  /// added nothing, and the rows have to be read.
  virtual bool Group(const RowRequest&, std::size_t /*key*/, const std::vector<TalliedField>&,
                     DissolveGroups&) {
    return false;
  }
};

/// Index of the field of that name regardless of case; -1 if there is none.
std::int32_t FindField(const std::vector<Field>& fields, TextView name);

/// Both conditions; a blank one asks for nothing.
Text BothClauses(TextView one, TextView other);

/// Takes the rows that aren't among `only` out of the live ones.
void KeepOnly(Batch& batch, const RowIds& only);

/// Each batch's live rows, thinned out by `keep`.
std::unique_ptr<IBatchReader> Thinned(std::unique_ptr<IBatchReader> rows,
                                      std::function<void(Batch&)> keep);

/// Set arithmetic over two selections.
RowIds Combined(const RowIds& now, RowIds rows, SelectionMethod method);

}  // namespace brelmon::columns
