// SPDX-License-Identifier: GPL-2.0-or-later
// A registry that lives in memory, as long as the process.
#pragma once

#include <memory>

#include "platform/services.h"

namespace brelmon::host {

std::unique_ptr<IRegistry> NewMemoryRegistry();

}  // namespace brelmon::host
