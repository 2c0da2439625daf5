// SPDX-License-Identifier: GPL-2.0-or-later
// Ends that come from outside.
#pragma once

namespace brelmon::cli {

/// From now on an interrupt, a hang-up and a request to end remove what is unfinished on the disk;
/// then the program ends as it would have.
void EndCleanlyAtSignals();

}  // namespace brelmon::cli
