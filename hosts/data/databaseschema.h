// SPDX-License-Identifier: GPL-2.0-or-later
// The schema of a SQLite file, read before GDAL reads it.
#pragma once

#include <string>

namespace brelmon::data {

/// How the reason of a database begins whose schema can't be read.
inline constexpr const char* kUnreadableSchema = "its schema can't be read";

/// Why the database isn't opened: a table in it that stands for something outside, or a schema that
/// can't be read. Empty for any other file.
std::string RefusalOfSchema(const std::string& path);

/// Whether a table's definition is that of a virtual table that keeps to its own database.
bool KeepsToItsDatabase(const std::string& sql);

}  // namespace brelmon::data
