// SPDX-License-Identifier: GPL-2.0-or-later
// How the component enters its classes into the host's registry.
#pragma once

#include "platform/text.h"

namespace brelmon {

/// Under the classes root: PROGID\CLSID, and CLSID\{...} with ProgID, InprocServer32 and Version.
void RegisterClasses(const Text& libraryPath);
void UnregisterClasses();

}  // namespace brelmon
