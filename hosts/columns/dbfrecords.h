// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of a dBASE file that are there and rows that are only marked as deleted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brelmon::columns {

struct DbfRecords {
  std::int64_t total = 0;
  std::int64_t deleted = 0;
};

/// Reads the marks alone, in one pass; nothing where the file can't be read as dBASE.
std::optional<DbfRecords> CountDbfRecords(const std::string& path);

}  // namespace brelmon::columns
