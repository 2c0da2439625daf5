// SPDX-License-Identifier: GPL-2.0-or-later
// Windows-1252, the single-byte code page of a module's text files.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace brelmon {

/// Total: the five bytes that the page leaves open become the control units of the same value.
Text FromWindows1252(std::string_view bytes);
/// Total: what the page can't hold becomes '?'; one for a surrogate pair.
std::string ToWindows1252(TextView text);
/// The first character that the page can't hold; empty where there is none.
Text FirstMisfit(TextView text);
/// Whether ToWindows1252 would lose nothing.
bool FitsWindows1252(TextView text);

}  // namespace brelmon
