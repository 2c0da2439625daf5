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
/// The likeliest of them as text, or "CODE".
Text CodeFor(const Text& location);

}  // namespace brelmon
