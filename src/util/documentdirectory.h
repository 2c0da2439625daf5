// SPDX-License-Identifier: GPL-2.0-or-later
// Where the open map document lies: whatever a module brings along lies beside it.
#pragma once

#include "platform/application.h"

namespace brelmon {

/// Full path of the open map document, which is the last of the application's templates. A
/// document that was never saved is told of in the error dialog and gives "".
Text GetPath(const Ref<IApplication>& application);

/// Its directory in the long form, with a closing backslash. Worked out anew at each call.
Text DocumentDirectory(const Ref<IApplication>& application);

}  // namespace brelmon
