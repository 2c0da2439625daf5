// SPDX-License-Identifier: GPL-2.0-or-later
// Files of this system under their Windows paths.
#pragma once

#include <memory>

#include "hosts/common/paths.h"
#include "platform/services.h"

namespace brelmon::host {

std::unique_ptr<IFileSystem> NewFileSystem(Paths paths = Paths());

}  // namespace brelmon::host
