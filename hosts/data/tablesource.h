// SPDX-License-Identifier: GPL-2.0-or-later
// One table of data, wherever it is, as hosts see it.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>

#include "hosts/columns/rows.h"
#include "hosts/data/sourceaddress.h"

namespace brelmon::data {

/// What every layer's shape column is called, whatever its source calls it.
inline constexpr TextView kShapeField = u"Shape";

class TableSource : public columns::IRowSource {
 public:
  const SourceAddress& Address() const { return address_; }
  bool Valid() const { return problem_.empty(); }
  /// As it follows "not opened: "; empty where it was opened.
  const std::string& Problem() const { return problem_; }
  /// Fails with 53, and the problem, where it wasn't opened.
  void CheckValid() const;

  /// "Shapefile", "GeoPackage", "PostgreSQL", ...
  const Text& Kind() const { return kind_; }
  bool HasGeometry() const { return hasGeometry_; }
  /// Whether where-clauses go to the source's own SQL.
  bool HasOwnSql() const { return ownSql_; }
  /// Whether others may be changing its rows at this moment.
  virtual bool IsShared() const { return false; }
  /// Folder or database that holds it; empty for a server.
  virtual std::string WorkspacePath() const = 0;
  virtual Text TableName() const = 0;
  /// Traditional axis order; null where the data tells none.
  virtual const OGRSpatialReference* ReferenceSystem() = 0;
  virtual bool Extent(OGREnvelope& extent) = 0;
  /// Rows under the clause whose shapes intersect `shape`, which is in the source's reference
  /// system.
  virtual columns::RowIds IdsTouching(const Text& clause, const OGRGeometry& shape,
                                      bool justOne) = 0;

 protected:
  explicit TableSource(SourceAddress address)
      : address_(std::move(address)), problem_(address_.problem) {}

  SourceAddress address_;
  std::string problem_;
  Text kind_;
  bool hasGeometry_ = false, ownSql_ = false;
};

/// Looks at the table at once; one that can't be opened is kept with its problem.
std::shared_ptr<TableSource> OpenSource(SourceAddress address);

}  // namespace brelmon::data
