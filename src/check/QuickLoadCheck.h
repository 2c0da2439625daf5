// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of QuickLoad.txt.
#pragma once

#include "check/ModuleCheck.h"

namespace brelmon {

/// Runs under the module's services; takes file number 1 and gives it back.
void CheckQuickLoad(const CheckedModule& module, const Text& directory,
                    std::vector<Finding>& findings);

}  // namespace brelmon
