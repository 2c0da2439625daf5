// SPDX-License-Identifier: GPL-2.0-or-later
// The error trail: every guarded procedure ends here when it fails.
#pragma once

#include <cstdint>

#include "platform/failure.h"
#include "platform/text.h"

namespace brelmon::ErrorHandling {

/// "Line : " and the line in decimal; empty for line 0.
Text ErrorLineText(std::int32_t line);

/// The one way in. A top procedure's failure is shown (mode 4 in the error dialog, 2, 3 and any
/// other in a message box); any other is raised again with the label above its description.
/// `parentWindow` and the extras are reserved.
void ReportTrailError(bool isTop, const Text& label, std::int32_t number, const Text& source,
                      const Text& description, std::int32_t mode, std::int32_t parentWindow,
                      std::int16_t extra1, std::int16_t extra2, std::int16_t extra3);

/// Whether a failure is on its way up with a trail in its description.
bool TrailInProgress();

/// Forgets trail and dialog, when the host's services go.
void Reset();

}  // namespace brelmon::ErrorHandling
