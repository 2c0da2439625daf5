// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of the map document: its folder, its layers, their values.
#pragma once

#include "check/ModuleCheck.h"

namespace brelmon {

/// Runs under the module's services.
void CheckDocument(const CheckedModule& module, const Text& directory,
                   std::vector<Finding>& findings);

}  // namespace brelmon
