// SPDX-License-Identifier: GPL-2.0-or-later
// A new dBASE table, whole or not at all.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/columns/codepage.h"

namespace brelmon::columns {

/// One column with all its values; the vector that belongs to its kind has one for each record.
struct DbfColumn {
  enum class Kind { Whole, Real, Date, Text };
  std::string Name;  // at most ten bytes
  Kind Is = Kind::Text;
  int Width = 0;                   // at least so wide, and as wide as its values need
  int Decimals = 0;                // likewise, of a real column
  std::vector<double> Numbers;     // numbers and day serials; NaN for null
  std::vector<std::string> Texts;  // UTF-8
  std::vector<bool> NullTexts;
};

/// Writes `path`, with its texts in `page`, which is known; a file beside it with the ending .cpg
/// names the page. Numbers keep 15 significant digits; dates with a time of day make their column a
/// text of "2026-11-16 14:15:07". Stands under another name in the same folder until it is whole.
/// Fails with 6 for a value or name that no column can hold, 58, 61, 70, 75 and 76 as files do;
/// then nothing is left behind.
void WriteDbfTable(const std::string& path, const CodePage& page, std::vector<DbfColumn> columns,
                   std::size_t records);

}  // namespace brelmon::columns
