// SPDX-License-Identifier: GPL-2.0-or-later
// Orders of rows, kept until table, filter or selection change.
#include "hosts/web/tablerows.h"

#include <algorithm>
#include <numeric>

#include "hosts/columns/values.h"

namespace brelmon::web {
namespace {

columns::Column ColumnOf(const StoredColumn& stored) {
  return {stored.nulls, stored.wholes, stored.reals, stored.moments, stored.texts};
}

Text CellOf(const ColumnTable& table, std::size_t field, std::size_t row) {
  const columns::Column column = ColumnOf(table.columns[field]);
  if (column.IsNull(row) || table.fields[field].Type == FieldType::Blob) return {};
  return columns::ValueAt(column, table.fields[field], row).ToText(0);
}

auto Key(const columns::Moment& moment) {
  return std::make_tuple(moment.Year, moment.Month, moment.Day, moment.Hour, moment.Minute,
                         moment.Second);
}

/// Nulls first; texts by their units.
bool Less(const StoredColumn& column, std::uint32_t one, std::uint32_t other) {
  if (!column.nulls.empty() && column.nulls[one] != column.nulls[other]) {
    return column.nulls[one] > column.nulls[other];
  }
  if (!column.wholes.empty()) return column.wholes[one] < column.wholes[other];
  if (!column.reals.empty()) return column.reals[one] < column.reals[other];
  if (!column.texts.empty()) return column.texts[one] < column.texts[other];
  if (column.moments.empty()) return false;
  return Key(column.moments[one]) < Key(column.moments[other]);
}

/// Places of the rows under the table's definition.
std::vector<std::uint32_t> Visible(ITableItem& item, bool selectedOnly) {
  std::vector<std::uint32_t> places;
  columns::RowRequest request;
  request.Clause = item.Definition();
  if (selectedOnly) request.Only = std::make_shared<columns::RowIds>(item.Selected());
  const auto rows = item.Data()->Read(request);
  std::uint32_t first = 0;
  while (const auto batch = rows->Next()) {
    for (const std::uint32_t row : batch->Live) places.push_back(first + row);
    first += static_cast<std::uint32_t>(batch->Rows);
  }
  return places;
}

}  // namespace

TableRows::Order& TableRows::OrderOf(int window, ITableItem& table) {
  Order& order = orders_[window];
  if (order.revision == table.Revision()) return order;
  order.rows = Visible(table, order.selectedOnly);
  const auto& columns = table.Data()->Table().columns;
  if (order.field >= 0 && static_cast<std::size_t>(order.field) < columns.size()) {
    const StoredColumn& column = columns[static_cast<std::size_t>(order.field)];
    std::stable_sort(
        order.rows.begin(), order.rows.end(), [&](std::uint32_t one, std::uint32_t other) {
          return order.descending ? Less(column, other, one) : Less(column, one, other);
        });
  }
  order.revision = table.Revision();
  return order;
}

void TableRows::Describe(ITableItem& table, Json& json) {
  const ModuleItem& item = table.Facts();
  json.Key("fields").BeginArray();
  const auto& fields = table.Data()->Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (item.hidden.count(fields[i].Name) != 0) continue;
    const auto alias = item.aliases.find(fields[i].Name);
    const bool number =
        fields[i].Stored == columns::Storage::Whole || fields[i].Stored == columns::Storage::Real;
    json.Begin()
        .Put("field", i)
        .Put("name", alias == item.aliases.end() ? fields[i].Name : alias->second)
        .Put("number", number)
        .End();
  }
  json.EndArray();
  json.Put("total", table.Data()->Table().RowCount()).Put("selected", table.Selected().size());
}

void TableRows::Describe(int window, ITableItem& item, std::size_t first, std::size_t count,
                         Json& json) {
  const Order& order = OrderOf(window, item);
  const ColumnTable& table = item.Data()->Table();
  json.Put("count", order.rows.size()).Key("rows").BeginArray();
  const std::size_t end = std::min(order.rows.size(), first + count);
  for (std::size_t i = first; i < end; ++i) {
    const std::uint32_t row = order.rows[i];
    const bool selected =
        std::binary_search(item.Selected().begin(), item.Selected().end(), table.ids[row]);
    json.Begin().Put("place", i).Put("selected", selected).Key("cells").BeginArray();
    for (std::size_t field = 0; field < table.fields.size(); ++field) {
      if (item.Facts().hidden.count(table.fields[field].Name) != 0) continue;
      json.Add(CellOf(table, field, row));
    }
    json.EndArray().End();
  }
  json.EndArray();
}

void TableRows::Sort(int window, int field, bool descending) {
  Order& order = orders_[window];
  order.field = field;
  order.descending = descending;
  order.revision = -1;
}

void TableRows::ShowSelectedOnly(int window, bool only) {
  orders_[window].selectedOnly = only;
  orders_[window].revision = -1;
}

std::vector<std::int64_t> TableRows::IdsAt(int window, ITableItem& table, std::size_t first,
                                           std::size_t last) {
  const Order& order = OrderOf(window, table);
  std::vector<std::int64_t> ids;
  for (std::size_t i = first; i <= last && i < order.rows.size(); ++i) {
    ids.push_back(table.Data()->Table().ids[order.rows[i]]);
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

}  // namespace brelmon::web
