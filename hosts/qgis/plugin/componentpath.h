// SPDX-License-Identifier: GPL-2.0-or-later
// Where the component's library is.
#pragma once

#include <string>

namespace brelmon::qgis {

/// What BRELMON_COMPONENT of the environment names, else libBrelmonOpenTable.so beside the plug-in,
/// else the one of the build.
std::string ComponentPath();

}  // namespace brelmon::qgis
