// SPDX-License-Identifier: GPL-2.0-or-later
// What stands at the end of a text file while it is being written anew.
#pragma once

#include <string_view>

namespace brelmon {

/// A line that only a file has whose writer was killed: to the tools' readers it is a note.
inline constexpr std::string_view kStoppedHere =
    "(The program that wrote this file was stopped here: what should follow is missing.)\r\n";

}  // namespace brelmon
