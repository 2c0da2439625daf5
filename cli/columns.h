// SPDX-License-Identifier: GPL-2.0-or-later
// Listings: rows of cells under headings, aligned, two blanks between columns.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace brelmon::cli {

class Columns {
 public:
  using Row = std::vector<std::string>;
  /// A heading that begins with '>' stands, as its column does, at the right; the mark itself is
  /// not printed.
  explicit Columns(Row headings);
  /// As many cells as headings, UTF-8. Line ends inside are printed as blanks.
  void Add(Row cells);
  /// No line ends in a blank.
  void Print(std::ostream& out) const;

 private:
  std::vector<bool> right_;
  std::vector<Row> rows_;  // the headings first
};

}  // namespace brelmon::cli
