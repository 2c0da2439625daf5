// SPDX-License-Identifier: GPL-2.0-or-later
// What a source is called, by its driver (or QGIS's name for it) or by its file's extension.
#pragma once

#include <string>

#include "platform/text.h"

namespace brelmon::data {

/// "Shapefile", "Personal Geodatabase", "SDE", ...; `driver` is empty for data that can't be
/// opened.
Text KindOf(const std::string& path, const std::string& driver);
/// Whether a file of that kind is one table, so that its folder is the workspace.
bool HoldsOneTable(const Text& kind);
bool HasSqlOfItsOwn(const std::string& driver);

}  // namespace brelmon::data
