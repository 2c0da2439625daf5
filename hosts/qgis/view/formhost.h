// SPDX-License-Identifier: GPL-2.0-or-later
// Shows forms modally to QGIS's main window.
#pragma once

#include <memory>

#include "toolkit/formhost.h"

namespace brelmon::qgis {

std::unique_ptr<IFormHost> NewFormHost();

}  // namespace brelmon::qgis
