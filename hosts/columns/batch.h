// SPDX-License-Identifier: GPL-2.0-or-later
// A table as typed columns, handed on in batches of rows: what every source fills and every
// operation on rows works on.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/table.h"

namespace brelmon::columns {

/// How the values of a field are stored.
enum class Storage : std::uint8_t {
  Whole,   // 64 bits
  Real,    // 64 bits
  Moment,  // a date, with or without a time of day
  Text,    // UTF-8
  Other,   // lists, times of day: texts as the source shows them; bytes: nothing at all
};

/// A calendar date and a time of day, each part as the source tells it.
struct Moment {
  std::int16_t Year = 0;
  std::uint8_t Month = 0, Day = 0, Hour = 0, Minute = 0;
  std::uint8_t Zone = 0;  // 0 unknown, 1 local, 100 universal, each quarter of an hour 1 more
  float Second = 0;
  bool operator==(const Moment&) const = default;
};

struct Field {
  std::string Name;  // UTF-8, as the source spells it
  FieldType Type = FieldType::String;
  Storage Stored = Storage::Text;
  bool Logical = false;   // of whole numbers: true and false
  bool TimeOfDay = true;  // of moments: false where the source keeps dates alone
  bool IsId = false;      // the rows' identifiers under a name of their own
  int Width = 0;          // as the source tells it, in its own bytes; 0 where it tells none
  int Decimals = 0;       // of a numeric column with a width
};

/// Identifiers of rows, ascending, each once.
using RowIds = std::vector<std::int64_t>;

/// Values of one field, one for each row of a batch; those of its storage alone are there. A null
/// has some value that nobody looks at.
struct Column {
  std::span<const std::uint8_t> Nulls;  // 1 for a null; empty where there is none
  std::span<const std::int64_t> Wholes;
  std::span<const double> Reals;
  std::span<const Moment> Moments;
  std::span<const std::string_view> Texts;

  bool IsNull(std::size_t row) const { return !Nulls.empty() && Nulls[row] != 0; }
};

/// Some rows that follow each other in their source.
struct Batch {
  std::size_t Rows = 0;
  std::vector<std::int64_t> Ids;  // one for each row, where they were asked for
  std::vector<Column> Columns;    // by index in the source's fields; empty for those not asked for
  std::vector<std::uint32_t> Live;  // the rows that count, ascending: not deleted, not filtered out
};

/// Rows in their source's order.
class IBatchReader {
 public:
  virtual ~IBatchReader() = default;
  /// The next batch, null at the end. It may have no live row. It is the reader's again as soon as
  /// nobody holds it; what its texts point to lives as long. Fails with 57 where reading broke off.
  virtual std::shared_ptr<Batch> Next() = 0;
};

}  // namespace brelmon::columns
