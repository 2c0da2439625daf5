// SPDX-License-Identifier: GPL-2.0-or-later
// Where-clauses in the dialect of files and in that of SQLite, evaluated over columns.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "hosts/columns/batch.h"
#include "platform/text.h"

namespace brelmon::columns {

/// A clause compiled for one table's fields. Not tied to any source; may be used again and again.
class Where {
 public:
  virtual ~Where() = default;
  /// Indices of the fields whose columns a batch must have, ascending.
  virtual const std::vector<std::size_t>& Fields() const = 0;
  /// Takes out of the batch's live rows those that don't match.
  virtual void Keep(Batch& batch) const = 0;
};

/// What came of a clause: the compiled one; or neither that nor a reason, where this evaluator
/// doesn't know all that the clause says and the source has to be asked; or why it is refused.
struct Compiled {
  std::unique_ptr<Where> where;
  std::string refusal;  // UTF-8
};

/// Never called with a blank clause. Meaning and refusals are those of GDAL's own SQL over a layer
/// with these fields.
Compiled CompileWhere(TextView clause, const std::vector<Field>& fields);

/// The same in the SQL of a SQLite database that holds these fields, for whoever has its rows and
/// no database to ask: comparisons, lists, ranges, patterns, reckoning, the functions of texts and
/// numbers. It never refuses: what it can't evaluate it says nothing about.
Compiled CompileSqliteWhere(TextView clause, const std::vector<Field>& fields);

}  // namespace brelmon::columns
