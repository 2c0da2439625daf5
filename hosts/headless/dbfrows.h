// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of a local dBASE table without a GDAL feature for each: what is plain is read from the file,
// and what is odd from GDAL.
#pragma once

#include <optional>

#include "hosts/headless/dbfscan.h"
#include "hosts/headless/rows.h"

namespace brelmon::headless {

/// A table's fields as GDAL's driver understands them.
class DbfTable {
 public:
  /// Null for other sources, for unusual encodings and where GDAL sees other rows or fields.
  static std::shared_ptr<const DbfTable> Of(VectorSource& source);

  const DbfLayout& Layout() const { return layout_; }
  DbfCell Cell(std::string_view record, const SourceField& field) const;
  // Texts of cells.
  Text ToText(std::string_view bytes) const;
  std::string ToUtf8(std::string_view bytes) const;
  /// Whether the bytes of a text are its UTF-8 already.
  bool IsUtf8(std::string_view bytes) const;

 private:
  bool Understands(const std::string& encoding);

  DbfLayout layout_;
  bool utf8_ = false;
  Text units_;  // by byte; 0 for a byte that stands for nothing
};

/// Walks the rows under a clause, which GDAL evaluates on the fields that it tests.
class DbfRows {
 public:
  /// Null where GDAL must read the rows. The clause was tried before.
  static std::unique_ptr<DbfRows> Open(const std::shared_ptr<VectorSource>& source,
                                       const Text& clause);

  bool Next();
  GIntBig Id() const { return scan_->Record(); }
  std::string_view Record() const { return scan_->Bytes(); }
  const std::shared_ptr<const DbfTable>& Table() const { return table_; }

 private:
  DbfRows() = default;
  bool Matches();

  std::shared_ptr<const DbfTable> table_;
  std::unique_ptr<DbfScan> scan_;
  std::optional<VectorSource::Handle> gdal_;  // compiles the clause, and reads what is odd
  std::unique_ptr<OGRFeatureQuery> query_;
  OGRFeatureUniquePtr tested_;
  std::vector<SourceField> testedFields_;
};

/// The value that GDAL's row would give.
Value ReadValue(VectorSource& source, const DbfTable& table, std::string_view record, GIntBig id,
                const SourceField& field);

/// As NewCursor; unset where GDAL must read the rows.
Ref<ICursor> NewDbfCursor(const std::shared_ptr<VectorSource>& source, const RowRequest& request,
                          bool recycling, std::shared_ptr<const RowIds> only);

}  // namespace brelmon::headless
