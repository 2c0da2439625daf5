// SPDX-License-Identifier: GPL-2.0-or-later
// Opening files and web addresses with the system's default program, and running programs.
#pragma once

#include <memory>

#include "hosts/common/paths.h"
#include "platform/services.h"

namespace brelmon::host {

/// Opens through xdg-open, or through the program that the environment's BRELMON_OPENER names:
/// that one is given the system path (a web address as it is) and the directory's.
std::unique_ptr<IShell> NewShell(Paths paths = Paths());

}  // namespace brelmon::host
