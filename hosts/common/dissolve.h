// SPDX-License-Identifier: GPL-2.0-or-later
// The one dissolve of all hosts: rows in, one record for each unique value of a field out.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/table.h"
#include "platform/workspace.h"

namespace brelmon::host {

struct DissolveField {
  std::string Name;  // UTF-8
  FieldType Type = FieldType::String;
  int Width = 0;     // of the source's column in its encoding's bytes; 0 where it tells none
  int Decimals = 0;  // of a numeric column with a width
};

/// One value of a row. Dates are day serials; texts are UTF-8 and live until the next row.
struct DissolveCell {
  enum class Kind { Null, Number, Date, Text };
  Kind Is = Kind::Null;
  double Number = 0;
  std::string_view Text;
};

/// The rows to dissolve, each once.
class IDissolveRows {
 public:
  virtual ~IDissolveRows() = default;
  virtual const std::vector<DissolveField>& Fields() = 0;
  /// Tells before the first row which fields will be asked for, by index.
  virtual void Choose(const std::vector<std::size_t>& fields) = 0;
  virtual bool Next() = 0;
  virtual DissolveCell Cell(std::size_t field) = 0;
  /// What the source's texts are stored in, as GDAL calls it: "UTF-8", "CP1252".
  virtual std::string Encoding() = 0;
};

/// Rows through the platform's own cursor: all, or the selected ones. Widths are not known.
std::unique_ptr<IDissolveRows> NewTableRows(const Ref<ITable>& table, bool useSelected);

/// Writes `folder`/`fileName` (a dBASE table; ".dbf" is added to a name without extension) and
/// gives its path. One column for each term of `summary` ("Minimum.NET, Count.NET, Sum.MAG") in
/// their order, a record for each unique value of `field` in ascending order, nulls first. Nulls
/// count in no statistic; a group without values has none. Variance and standard deviation divide
/// by n - 1 and are 0 for one value. Until it is whole, the table stands under another name. Fails
/// with 5 for a term or field that isn't there, 13 for a statistic that the field's type can't
/// have, 6 for a value or a number of columns that dBASE can't hold, 52 for such a name, 58 for a
/// file that is there, 61 on a full disk, 70 or 75 for a folder that can't be written to, 76 for a
/// missing one; then nothing is left behind.
std::string Dissolve(IDissolveRows& rows, const Text& field, const Text& summary,
                     const std::string& folder, const Text& fileName);

/// Gives the rows of a table to dissolve, and opens the table that was made.
using DissolveSource =
    std::function<std::unique_ptr<IDissolveRows>(const Ref<ITable>& input, bool useSelected)>;
using DissolveResult = std::function<Ref<ITable>(const std::string& path)>;
/// Output workspaces are named by DatasetPath objects.
Ref<IBasicGeoprocessor> NewBasicGeoprocessor(DissolveSource rowsOf, DissolveResult open);

}  // namespace brelmon::host
