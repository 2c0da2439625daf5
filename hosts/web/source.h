// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of one published table, or of a table that the tools have written.
#pragma once

#include "hosts/columns/rows.h"
#include "hosts/web/module.h"

namespace brelmon::web {

class Source : public columns::IRowSource {
 public:
  /// Without a table until Fill.
  explicit Source(SourceFacts facts) : facts_(std::move(facts)) {}

  /// Takes the table's bytes; those that can't be read become the source's problem.
  void Fill(std::string bytes);
  void Fill(std::shared_ptr<const ColumnTable> table) { table_ = std::move(table); }

  const SourceFacts& Facts() const { return facts_; }
  bool Valid() const { return table_ != nullptr; }
  /// Fails with 53 where the data is not reached.
  const ColumnTable& Table() const;
  /// Place of the row of that identifier; the number of rows where there is none.
  std::size_t PlaceOf(std::int64_t id) const;

  const std::vector<columns::Field>& Fields() const override;
  const columns::CodePage& Encoding() override { return facts_.encoding; }
  void TryClause(TextView clause) override;
  std::unique_ptr<columns::IBatchReader> Read(const columns::RowRequest& request) override;

 private:
  SourceFacts facts_;
  std::shared_ptr<const ColumnTable> table_;
};

using Sources = std::map<std::string, std::shared_ptr<Source>>;

/// A dBASE file of the page's own. Its encoding is UTF-8 or that of one of the sources, by the name
/// in the .cpg file beside it. Fails with 53 for one that can't be read.
std::shared_ptr<Source> SourceOfDbf(const std::string& systemPath, const Sources& sources);

}  // namespace brelmon::web
