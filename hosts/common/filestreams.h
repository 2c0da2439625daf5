// SPDX-License-Identifier: GPL-2.0-or-later
// Open files as streams of bytes: read, added to, or written anew.
#pragma once

#include <memory>
#include <string>

#include "platform/services.h"

namespace brelmon::host {

/// Owns the descriptor, whatever comes of it. Fails with 75 for what is no regular file; a device
/// may be written to. `system` is its path, for the failure.
std::unique_ptr<IByteStream> NewFileStream(int descriptor, FileMode mode,
                                           const std::string& system);

}  // namespace brelmon::host
