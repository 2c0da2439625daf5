// SPDX-License-Identifier: GPL-2.0-or-later
// Catalog dialogs: the desktop's file dialogs with what a tool sets of them.
#pragma once

#include "platform/windows.h"

namespace brelmon::qgis {

Ref<IGxDialog> NewGxDialog();

}  // namespace brelmon::qgis
