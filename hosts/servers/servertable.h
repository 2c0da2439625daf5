// SPDX-License-Identifier: GPL-2.0-or-later
// One table on a server: what can be asked there is asked there.
#pragma once

#include <chrono>
#include <memory>

#include "hosts/columns/rows.h"
#include "hosts/servers/tablefacts.h"

namespace brelmon::servers {

class Transaction;

class ServerTable : public columns::IRowSource {
 public:
  /// Looks into the catalogue at once. Fails with 53 and a reason that follows "not opened: ".
  explicit ServerTable(Address address);

  const Address& Where() const { return address_; }
  const TableFacts& Facts() const { return *facts_; }

  // IRowSource. A clause is in the server's own language.
  const std::vector<columns::Field>& Fields() const override { return facts_->Fields; }
  const columns::CodePage& Encoding() override { return utf8_; }
  void TryClause(TextView clause) override;
  std::unique_ptr<columns::IBatchReader> Read(const columns::RowRequest& request) override;
  std::int64_t CountRows(const Text& clause) override;
  columns::RowIds IdsOfRows(const Text& clause, bool justOne) override;
  std::unique_ptr<columns::IBatchReader> ReadValues(const columns::RowRequest& request) override;
  bool Group(const columns::RowRequest& request, std::size_t key,
             const std::vector<columns::TalliedField>& fields,
             columns::DissolveGroups& groups) override;

  /// Rows under the clause whose shapes intersect a well-known binary, which is in the table's
  /// reference system.
  columns::RowIds IdsTouching(const Text& clause, std::string_view wkb, bool justOne);

  /// As the server estimates it where it can. False for no shapes.
  struct Box {
    double MinX = 0, MinY = 0, MaxX = 0, MaxY = 0;
  };
  bool Extent(Box& box);
  /// "EPSG:4326" or a definition; empty where the server tells none.
  std::string ReferenceSystem();

 private:
  /// The conditions of a request, with " WHERE " before them; `pushed` says whether identifiers are
  /// among them.
  std::string WhereOf(const columns::RowRequest& request, bool& pushed) const;
  std::string WhereOf(const Text& clause, const std::string& more = {}) const;
  /// One query over the table, or one over each of its parts, put together.
  std::string OverParts(const std::string& select, const std::string& where,
                        const std::string& behind, TextView clause) const;
  columns::RowIds Ids(const std::string& where, bool justOne, bool asked);

  Address address_;
  std::shared_ptr<const TableFacts> facts_;
  columns::CodePage utf8_;
  Text tried_;  // the clause that was tried last
  struct Counted {
    Text clause;
    std::int64_t rows = 0;
    std::chrono::steady_clock::time_point at;
  };
  std::optional<Counted> counted_;
};

}  // namespace brelmon::servers
