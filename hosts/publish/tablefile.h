// SPDX-License-Identifier: GPL-2.0-or-later
// A source's rows and shapes as a FlatGeobuf file.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "hosts/data/vectorsource.h"

namespace brelmon::publish {

struct TableFacts {
  std::int64_t rows = 0;
  std::string geometry;        // "point", "line", "polygon", "mixed"; empty for a table
  OGREnvelope extent;          // not initialised where there is no shape
  std::int64_t placeless = 0;  // rows whose shapes have no place in the target system
};

/// Writes all rows, whatever a layer's filter, in the order in which the source reads them: column
/// 0 is the row's identifier, then each field but those of identifiers. Shapes go from one
/// reference system to the other, and stay where either is null. `now` is called now and then and
/// may fail. Fails as reading does, and with std::runtime_error where the file can't be written.
TableFacts WriteTable(const std::shared_ptr<data::VectorSource>& source,
                      const OGRSpatialReference* from, const OGRSpatialReference* to,
                      const std::string& file, const std::function<void()>& now);

}  // namespace brelmon::publish
