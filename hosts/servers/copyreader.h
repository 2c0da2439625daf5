// SPDX-License-Identifier: GPL-2.0-or-later
// Rows out of the server's binary copies.
#pragma once

#include <optional>
#include <string>

#include "hosts/columns/columnbuffer.h"
#include "hosts/servers/connection.h"
#include "hosts/servers/tablefacts.h"

namespace brelmon::servers {

/// The values of a copy, row by row and column by column.
class CopyStream {
 public:
  /// The transaction is at a copy and lives as long.
  explicit CopyStream(Transaction& server) : server_(server) {}

  /// Goes to the next row; false at the end.
  bool NextRow(int columns);
  /// The next value of the row, nothing for a null; valid until the next row.
  std::optional<std::string_view> NextValue();

 private:
  void SkipHead();
  std::string_view Take(std::size_t size);
  template <class Whole>
  Whole TakeWhole();

  Transaction& server_;
  std::string_view piece_;
  bool begun_ = false, ended_ = false;
};

/// Numbers as they travel, highest byte first. Fails with 57 for another number of bytes.
std::int64_t WholeOf(Wire wire, std::string_view bytes);
double RealOf(Wire wire, std::string_view bytes);
/// False for the ends of time, and for years that no date has.
bool MomentOf(Wire wire, std::string_view bytes, columns::Moment& moment);

/// Puts one value into its column, a null for nothing.
void TakeValue(Wire wire, std::optional<std::string_view> bytes, columns::ColumnBuffer& column,
               std::size_t row, columns::TextRoom& texts);

/// The rows of a copy with these fields, and behind them identifiers if they are asked for.
std::unique_ptr<columns::IBatchReader> ReadCopy(std::unique_ptr<Transaction> server,
                                                std::shared_ptr<const TableFacts> facts,
                                                std::vector<std::size_t> fields, bool withIds);

}  // namespace brelmon::servers
