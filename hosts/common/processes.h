// SPDX-License-Identifier: GPL-2.0-or-later
// Processes by their numbers.
#pragma once

namespace brelmon::host {

long OwnProcess();
/// Of whichever user.
bool ProcessLives(long number);

}  // namespace brelmon::host
