// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of data sources: in the module, by relative paths, spelt as the files are.
#pragma once

#include <set>

#include "check/ModuleCheck.h"

namespace brelmon {

/// Looks at the sources in `file`, the map document or a layer file, both by full path. Gives the
/// names of the layers that it told something of.
std::set<Text> CheckSources(const CheckedModule& module, const Text& directory, const Text& file,
                            std::vector<Finding>& findings);

}  // namespace brelmon
