// SPDX-License-Identifier: GPL-2.0-or-later
// Many texts sorted without regard to case.
#pragma once

#include <cstddef>

#include "platform/text.h"

namespace brelmon {

/// Sorts `count` texts as CompareNoCase orders them; at most 2^32 - 1. Equal ones stand in no
/// promised order. A text moves once; beside the texts 32 bytes for each are held.
void SortNoCase(Text* texts, std::size_t count);

}  // namespace brelmon
