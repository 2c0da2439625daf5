// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS's own summarize dialog: its "Statistics by categories".
#pragma once

#include "platform/windows.h"

namespace brelmon::qgis {

Ref<ISummarizeDialog> NewSummarizeDialog();

}  // namespace brelmon::qgis
