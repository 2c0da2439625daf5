// SPDX-License-Identifier: GPL-2.0-or-later
// A SQLite file through a connection of our own, beside GDAL's. It knows no extension: what a
// virtual table or a view would call isn't called.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

namespace brelmon::data {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct EndStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

/// For reading alone, in an archive too; null where that isn't possible.
Database OpenDatabase(const std::string& path);

}  // namespace brelmon::data
