// SPDX-License-Identifier: GPL-2.0-or-later
// The component's name and version.
#pragma once

#include "platform/text.h"

namespace brelmon {

inline constexpr TextView kComponentName = u"BrelmonOpenTable";

struct Version {
  int Major;
  int Minor;
  int Revision;
};
inline constexpr Version kVersion = {1, 9, 59};
/// The same as a file version: two digits for the minor, four for the revision.
inline constexpr TextView kFileVersion = u"1.09.0059";

}  // namespace brelmon
