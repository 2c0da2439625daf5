// SPDX-License-Identifier: GPL-2.0-or-later
// Where the component's library is.
#pragma once

#include <string>

namespace brelmon::cli {

/// The environment's BRELMON_COMPONENT, else the library beside the program or in ../lib, else
/// where it was built. Whether it can be loaded is not looked at.
std::string ComponentFile();

}  // namespace brelmon::cli
