// SPDX-License-Identifier: GPL-2.0-or-later
// Batches out of a source that gives one row after the other.
#pragma once

#include <optional>

#include "hosts/columns/columnbuffer.h"
#include "hosts/data/vectorsource.h"

namespace brelmon::data {

class RowFiller : public columns::IBatchReader {
 public:
  std::shared_ptr<columns::Batch> Next() override;

 protected:
  RowFiller(std::shared_ptr<VectorSource> source, std::vector<std::size_t> fields)
      : source_(std::move(source)), fields_(std::move(fields)) {}

  /// Goes to the next row and tells its identifier; nothing at the end.
  virtual std::optional<std::int64_t> NextRow() = 0;
  /// Puts a value of that row into its column.
  virtual void Take(std::size_t field, columns::ColumnBuffer& column, std::size_t row,
                    columns::TextRoom& texts) = 0;

  std::shared_ptr<VectorSource> source_;
  std::vector<std::size_t> fields_;

 private:
  struct Filled : columns::Batch {
    std::vector<columns::ColumnBuffer> buffers;
    columns::TextRoom texts;
  };
  void Start();

  std::shared_ptr<Filled> batch_;
  bool ended_ = false;
};

}  // namespace brelmon::data
