// SPDX-License-Identifier: GPL-2.0-or-later
// The twenty-one classes and what makes them.
#pragma once

#include <array>

#include "platform/component.h"

namespace brelmon {

struct ClassEntry {
  TextView Name;
  Guid Id;
  Ref<IObject> (*Make)();
};

/// The toolbar first, then the commands in order of their bitmaps.
const std::array<ClassEntry, 21>& Classes();

}  // namespace brelmon
