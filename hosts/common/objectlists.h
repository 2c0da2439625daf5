// SPDX-License-Identifier: GPL-2.0-or-later
// Enumerations and sets over lists that a host has made.
#pragma once

#include <vector>

#include "platform/map.h"

namespace brelmon::host {

Ref<ISet> NewSet(std::vector<Ref<IObject>> members);
Ref<IEnumLayer> NewEnumLayer(std::vector<Ref<ILayer>> layers);
Ref<IEnumElement> NewEnumElement(std::vector<Ref<IElement>> elements);

/// In the units of whoever it is given to; all zero at first.
Ref<IEnvelope> NewEnvelope();

}  // namespace brelmon::host
