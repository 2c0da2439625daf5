// SPDX-License-Identifier: GPL-2.0-or-later
// Who stands in the About box: the one place to change for another maker or sponsor. Their pages
// are options of the build.
#pragma once

#include "platform/text.h"

namespace brelmon::about {

inline constexpr TextView kMakerName = u"the Brelmon Tools project";
inline constexpr TextView kSponsorLine = u"Learning modules and help:";
inline constexpr TextView kSponsorName = u"Brelmon Tools for classrooms";

}  // namespace brelmon::about
