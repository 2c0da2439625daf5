// SPDX-License-Identifier: GPL-2.0-or-later
// Whether somebody sits in front of it.
#pragma once

namespace brelmon::cli {

/// Whether questions can be asked: standard input and standard error are a terminal's.
bool AtTerminal();
/// Whether standard error is one, for pictures that move.
bool ErrorsAtTerminal();
/// Asks on standard error; everything but y and yes is No.
bool AskYesNo();

}  // namespace brelmon::cli
