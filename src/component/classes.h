// SPDX-License-Identifier: GPL-2.0-or-later
// The classes and what makes them.
#pragma once

#include <span>

#include "platform/component.h"

namespace brelmon {

struct ClassEntry {
  TextView Name;
  Guid Id;
  Ref<IObject> (*Make)();
};

/// The toolbar first, then the commands in order of their bitmaps.
std::span<const ClassEntry> Classes();

}  // namespace brelmon
