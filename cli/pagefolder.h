// SPDX-License-Identifier: GPL-2.0-or-later
// Where the page to be published is.
#pragma once

#include <string>

namespace brelmon::cli {

/// The environment's BRELMON_WEB, else the folder web among the data of the program's prefix. What
/// it holds is not looked at.
std::string PageFolder();

}  // namespace brelmon::cli
