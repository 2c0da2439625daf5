// SPDX-License-Identifier: GPL-2.0-or-later
// Message boxes, the mouse pointer and the clipboard of the desktop.
#pragma once

#include <memory>

#include "platform/services.h"

namespace brelmon::qgis {

/// Boxes are modal to the window that they stand above.
std::unique_ptr<IMessageBox> NewMessageBox();
/// Takes back every pointer that it has set when it goes.
std::unique_ptr<IScreen> NewScreen();
std::unique_ptr<IClipboard> NewClipboard();

}  // namespace brelmon::qgis
