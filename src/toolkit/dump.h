// SPDX-License-Identifier: GPL-2.0-or-later
// Pieces of a form's dump. They don't depend on a locale.
#pragma once

#include "toolkit/control.h"

namespace brelmon::dump {

/// In quotes, with quotes, backslashes and control units escaped.
Text Quoted(TextView text);
/// Two decimals at most.
Text Number(double number);
/// " picture="..."" or nothing.
Text PictureText(const Picture& picture);
/// "bold underline 12 Name" as far as they differ from the system's.
Text FontText(const Font& font);
/// Hexadecimal, in blue-green-red order.
Text ColourText(Colour colour);

}  // namespace brelmon::dump
