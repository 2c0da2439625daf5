// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS as the application that commands are hooked to.
#pragma once

#include <memory>

#include "platform/application.h"

namespace brelmon::qgis {

/// The one application, with its one document, as long as the plug-in is loaded.
Ref<IApplication> NewApplication();

}  // namespace brelmon::qgis
