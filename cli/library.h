// SPDX-License-Identifier: GPL-2.0-or-later
// Where the component's library and the page to be published are.
#pragma once

#include <string>

namespace brelmon::cli {

/// The environment's BRELMON_COMPONENT, else the library beside the program or in ../lib, else
/// where it was built. Whether it can be loaded is not looked at.
std::string ComponentFile();

/// The environment's BRELMON_WEB, else ../share/brelmon-tools/web beside the program's folder, else
/// where it is built. What it holds is not looked at.
std::string PageFolder();

}  // namespace brelmon::cli
