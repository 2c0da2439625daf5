// SPDX-License-Identifier: GPL-2.0-or-later
// Rows under a where-clause: trying it, counting, identifiers, cursors.
#pragma once

#include <vector>

#include "hosts/columns/querytokens.h"
#include "hosts/headless/vectorsource.h"

namespace brelmon::headless {

/// Identifiers in ascending order, each once.
using RowIds = std::vector<GIntBig>;

/// Fails with E_FAIL, and the source's reason, for a clause that it can't parse or that names a
/// field that isn't there. A blank clause stands for all rows.
void TryClause(VectorSource& source, TextView clause);

/// Both conditions; a blank one asks for nothing.
Text BothClauses(TextView one, TextView other);

/// Whether a clause tests what isn't among the fields and must be read with them.
bool TestsGeometry(const columns::ClauseNames& names);

/// What to read: rows under a clause that was tried, and of them which fields.
struct RowRequest {
  Text clause;
  /// Indices in the source's fields; `allFields` takes no notice of them.
  std::vector<std::int32_t> fields;
  bool allFields = false;
  bool geometry = false;
};

/// Ready to read from the first row on.
VectorSource::Handle OpenRows(VectorSource& source, const RowRequest& request);

/// Whether GDAL's last error, since rows were opened, broke off the reading. An expression that
/// GDAL itself evaluates complains of each null among dates and goes on.
bool ReadingBroke(const VectorSource& source, const Text& clause);

GIntBig CountRows(VectorSource& source, const Text& clause);

/// With `shape`, which is in the source's reference system, only rows that intersect it. With
/// `justOne`, the first row at most.
RowIds IdsOfRows(VectorSource& source, const Text& clause, const OGRGeometry* shape, bool justOne);

/// Rows under a clause that was tried; with `only`, those among them. SubFields names the fields to
/// be read, empty for all; one that isn't there fails with E_FAIL.
Ref<ICursor> NewCursor(const std::shared_ptr<VectorSource>& source, const Text& clause,
                       const Text& subFields, bool recycling,
                       std::shared_ptr<const RowIds> only = nullptr);

}  // namespace brelmon::headless
