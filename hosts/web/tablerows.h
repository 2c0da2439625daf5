// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of a table window: those in sight alone.
#pragma once

#include <map>

#include "hosts/web/items.h"
#include "hosts/web/json.h"

namespace brelmon::web {

/// The order of rows in each open window, and their cells as general text.
class TableRows {
 public:
  /// Fields that are shown, by alias, and how many rows there are and are selected.
  void Describe(ITableItem& table, Json& json);
  /// `count` rows from `first` on, in the window's order: cells, and whether each is selected.
  void Describe(int window, ITableItem& table, std::size_t first, std::size_t count, Json& json);
  /// By a field's number among all fields, -1 for the source's own order.
  void Sort(int window, int field, bool descending);
  void ShowSelectedOnly(int window, bool only);
  void Forget(int window) { orders_.erase(window); }
  /// Identifiers of rows by their places in the window's order.
  std::vector<std::int64_t> IdsAt(int window, ITableItem& table, std::size_t first,
                                  std::size_t last);

 private:
  struct Order {
    int revision = -1;  // of the table that it was made for
    int field = -1;
    bool descending = false, selectedOnly = false;
    std::vector<std::uint32_t> rows;  // places in the table
  };
  Order& OrderOf(int window, ITableItem& table);
  std::map<int, Order> orders_;
};

}  // namespace brelmon::web
