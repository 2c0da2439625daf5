// SPDX-License-Identifier: GPL-2.0-or-later
// Reading published tables.
#pragma once

#include <memory>

#include "hosts/web/columntable.h"

namespace brelmon::web {

/// Column 0 of the file gives the row identifiers; `fields` says what the columns behind it are
/// called and how their values are stored, without those of `IsId`. Throws std::runtime_error with
/// the reason for bytes that are no such table.
std::shared_ptr<ColumnTable> ReadFlatGeobuf(std::string bytes, std::vector<columns::Field> fields);

}  // namespace brelmon::web
