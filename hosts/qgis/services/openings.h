// SPDX-License-Identifier: GPL-2.0-or-later
// What becomes of programs that were started to open something.
#pragma once

#include "hosts/common/shell.h"

namespace brelmon::qgis {

/// Tells in a box where nothing opens; boxes are shown by `messageBox`, which outlives the watch.
host::OpeningWatch WatchOpenings(IMessageBox& messageBox);

}  // namespace brelmon::qgis
