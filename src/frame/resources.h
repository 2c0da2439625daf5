// SPDX-License-Identifier: GPL-2.0-or-later
// The pictures and the cursor that the component carries within itself.
#pragma once

#include <string_view>

namespace brelmon {

/// The bytes of an embedded file: "103.bmp", "corner.bmp", "hand.cur". Bitmaps have 24 bits a
/// pixel; magenta (255, 0, 255) is clear in those of buttons, trees and the corner.
/// Beside each bitmap stands its subject as SVG ("103.svg"), whose ink is #303030.
/// Empty if there is no such file. The bytes live as long as the process.
std::string_view ResourceBytes(std::string_view fileName);

}  // namespace brelmon
