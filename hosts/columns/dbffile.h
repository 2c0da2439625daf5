// SPDX-License-Identifier: GPL-2.0-or-later
// Records of a dBASE file as columns.
#pragma once

#include <functional>
#include <optional>

#include "hosts/columns/codepage.h"
#include "hosts/columns/columnbuffer.h"

namespace brelmon::columns {

struct DbfPlace {
  char type = 'C';
  std::size_t offset = 0, width = 0;  // bytes in the record, whose first byte is the deletion mark
};

struct DbfLayout {
  std::string path;
  std::int64_t records = 0;  // deleted ones included
  std::size_t headerLength = 0, recordLength = 0;
  std::vector<DbfPlace> fields;
};

/// Nothing unless the header, the fields and the length of the file agree.
std::optional<DbfLayout> ReadDbfLayout(const std::string& path);

/// Sets a value, or a null, that calls for more than blanks, digits and texts: a number in stars, a
/// date that is none, a logical value, a memo, a byte outside its code page. Record from 0.
using OddCell = std::function<void(std::int64_t record, std::size_t field, ColumnBuffer& column,
                                   std::size_t row, TextRoom& texts)>;

/// All that a reader of the file needs; it may be read several times at once.
struct DbfSource {
  DbfLayout layout;
  std::vector<Field> fields;  // one for each of the layout's
  CodePage page;              // known
  OddCell odd;
};

/// Identifiers are the records' numbers; those marked as deleted don't count. Fails with 57 where
/// the file can't be read on.
std::unique_ptr<IBatchReader> ReadDbf(std::shared_ptr<const DbfSource> source,
                                      std::vector<std::size_t> fields);

}  // namespace brelmon::columns
