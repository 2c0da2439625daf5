// SPDX-License-Identifier: GPL-2.0-or-later
// A session: lines from standard input, at a terminal with a prompt.
#pragma once

#include "cli/commandline.h"

namespace brelmon::cli {

/// To the end of input, or the word quit or exit. Gives the greatest status of its lines; a line
/// that fails doesn't end it.
int RunSession(Session& session, const Choices& outer);

}  // namespace brelmon::cli
