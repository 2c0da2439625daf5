// SPDX-License-Identifier: GPL-2.0-or-later
// A table in memory: all of its columns and shapes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/columns/batch.h"
#include "hosts/web/shapes.h"

namespace brelmon::web {

/// The values of one field; the vector of its storage alone is filled.
struct StoredColumn {
  std::vector<std::uint8_t> nulls;
  std::vector<std::int64_t> wholes;
  std::vector<double> reals;
  std::vector<columns::Moment> moments;
  std::vector<std::string_view> texts;  // into the table's bytes
};

struct ColumnTable {
  std::vector<columns::Field> fields;
  std::vector<StoredColumn> columns;  // by field
  std::vector<std::int64_t> ids;      // one for each row
  ShapeStore shapes;                  // empty, or one for each row
  std::string bytes;                  // what the texts point to

  std::size_t RowCount() const { return ids.size(); }
};

}  // namespace brelmon::web
