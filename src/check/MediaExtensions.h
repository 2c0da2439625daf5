// SPDX-License-Identifier: GPL-2.0-or-later
// Which kind of media a file name tells of.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text.h"

namespace brelmon {

/// Kind codes that fit the extension of a location, the likeliest first; none for an extension that
/// tells nothing.
std::vector<std::int32_t> CodesForLocation(const Text& location);
/// Whether it is written like the address of a web page.
bool LooksLikeAddress(const Text& location);
/// The likeliest of them as text; 5 for an extension that tells nothing, which opens any file,
/// a page of the module's own among them.
Text CodeFor(const Text& location);

}  // namespace brelmon
