// SPDX-License-Identifier: GPL-2.0-or-later
// Expressions of a SQLite database over the rows of a batch.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hosts/columns/batch.h"
#include "hosts/columns/sqlitevalues.h"

namespace brelmon::columns {

/// A row that is looked at, and where texts that are made of it live meanwhile.
struct SqliteRow {
  const Batch& batch;
  std::uint32_t row;
  MadeTexts& made;
};

/// What a column or a cast makes of the value that it is compared with.
enum class Affinity : std::uint8_t { None, Number, Text };

struct SqliteExpression {
  std::function<SqliteValue(const SqliteRow&)> value;
  Affinity affinity = Affinity::None;
  /// Times of day may be spelt in several ways in their database, which agree up to the seconds.
  bool time = false;
  std::size_t constantSize = std::string::npos;  // bytes of a text that stands in the clause
};

using SqliteExpressions = std::vector<SqliteExpression>;

/// A field's values.
SqliteExpression SqliteField(const Field& field, std::size_t index);
/// A function that looks at its arguments alone; without a value where this evaluator doesn't know
/// it. `name` is in small letters.
SqliteExpression SqliteCall(const std::string& name, SqliteExpressions arguments);
/// `CAST(... AS type)`, likewise.
SqliteExpression SqliteCast(SqliteExpression of, const std::string& type);

}  // namespace brelmon::columns
