// SPDX-License-Identifier: GPL-2.0-or-later
// The component's name and version.
#pragma once

#include "frame/configuration.h"

namespace brelmon {

inline constexpr TextView kComponentName = u"BrelmonOpenTable";

struct Version {
  int Major;
  int Minor;
  int Revision;
};
inline constexpr Version kVersion = {configuration::kMajor, configuration::kMinor,
                                     configuration::kRevision};
/// The same as a file version: two digits for the minor, four for the revision.
inline constexpr TextView kFileVersion = configuration::kFileVersion;

}  // namespace brelmon
