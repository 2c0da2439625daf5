// SPDX-License-Identifier: GPL-2.0-or-later
// What a server's catalogue says of a table.
#pragma once

#include <string>
#include <vector>

#include "hosts/columns/batch.h"
#include "hosts/servers/address.h"

namespace brelmon::servers {

/// How a value travels.
enum class Wire { Truth, Whole16, Whole32, Whole64, Real32, Real64, Day, Moment, Text, Nothing };

struct ColumnFacts {
  Wire Travels = Wire::Text;
  std::string Select;    // the expression that is asked for, of the type that travels
  std::string GroupBy;   // the same where only equal bytes are equal
  bool IsExact = false;  // whole numbers, of which the server's own sums are exact
};

struct TableFacts {
  std::string Schema, Table;
  std::string From;                 // quoted
  std::string Id;                   // an expression of 64 bits
  std::vector<std::string> Leaves;  // partitions that may be asked by themselves; quoted
  std::vector<columns::Field> Fields;
  std::vector<ColumnFacts> Columns;  // one for each field
  bool HasGeometry = false, IsGeography = false;
  std::string Geometry;       // the column, quoted
  std::string PostgisSchema;  // quoted
  int Srid = 0;
  bool TextsByCode = false;  // bytes in the order of their characters' codes
};

class Transaction;

/// Fails with 53, and a reason that follows "not opened: ", where there is nothing to be read.
TableFacts ReadFacts(Transaction& server, const Address& address);

/// A condition that holds for the rows of these identifiers alone.
std::string AmongIds(const TableFacts& facts, const columns::RowIds& ids);

}  // namespace brelmon::servers
