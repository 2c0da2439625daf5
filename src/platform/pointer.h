// SPDX-License-Identifier: GPL-2.0-or-later
// The pointer that the mouse moves.
#pragma once

namespace brelmon {

enum class Pointer : int { Default = 0, Hourglass = 11, Custom = 99 };

}  // namespace brelmon
