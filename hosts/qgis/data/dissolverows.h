// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of this host's tables to dissolve, with the widths and encoding of their source.
#pragma once

#include "hosts/common/dissolve.h"

namespace brelmon::qgis {

/// Rows as QGIS shows them, unsaved edits and joined fields included: those under the layer's
/// filter, with `useSelected` the selected ones among them. A table of another host is read
/// through the platform's cursor.
std::unique_ptr<host::IDissolveRows> NewDissolveRows(const Ref<ITable>& table, bool useSelected);

}  // namespace brelmon::qgis
