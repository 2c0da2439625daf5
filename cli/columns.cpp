// SPDX-License-Identifier: GPL-2.0-or-later
// Widths in characters, not bytes.
#include "cli/columns.h"

#include <algorithm>

namespace brelmon::cli {
namespace {

std::size_t Width(const std::string& utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}

}  // namespace

Columns::Columns(Row headings) {
  for (std::string& heading : headings) {
    right_.push_back(heading.starts_with('>'));
    if (right_.back()) heading.erase(0, 1);
  }
  rows_.push_back(std::move(headings));
}

void Columns::Add(Row cells) {
  cells.resize(right_.size());
  for (std::string& cell : cells) {
    std::erase(cell, '\r');
    std::replace(cell.begin(), cell.end(), '\n', ' ');
  }
  rows_.push_back(std::move(cells));
}

void Columns::Print(std::ostream& out) const {
  std::vector<std::size_t> widths(right_.size(), 0);
  for (const Row& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  for (const Row& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) line += "  ";
      const std::string fill(widths[i] - Width(row[i]), ' ');
      line += right_[i] ? fill + row[i] : row[i] + fill;
    }
    const auto end = line.find_last_not_of(' ');
    out << line.substr(0, end == std::string::npos ? 0 : end + 1) << '\n';
  }
}

}  // namespace brelmon::cli
