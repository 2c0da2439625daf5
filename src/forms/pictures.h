// SPDX-License-Identifier: GPL-2.0-or-later
// Pictures of the component's own that several forms show.
#pragma once

#include <string_view>

#include "toolkit/control.h"

namespace brelmon {

/// The embedded picture or cursor of that file name, with words for who can't see it. The same
/// object at each call with the same two; null if there is no such file.
Picture PictureOf(std::string_view fileName, TextView description);

/// The mark in the lower right corner of a sizable form, 15 by 15 pixels.
Picture CornerBars();

}  // namespace brelmon
