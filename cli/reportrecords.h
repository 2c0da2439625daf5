// SPDX-License-Identifier: GPL-2.0-or-later
// The statistics report as records for programs.
#pragma once

#include "platform/text.h"

namespace brelmon::cli {

/// Prints a record for each field with its figures, one for what was ignored, and the text itself.
void PrintReport(const Text& report, const Text& item);

}  // namespace brelmon::cli
