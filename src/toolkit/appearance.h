// SPDX-License-Identifier: GPL-2.0-or-later
// Measures, colours, fonts and pictures of controls.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/text.h"

namespace brelmon {

/// 15 twips are a pixel at 96 dots an inch.
using Twips = float;
inline constexpr int kTwipsPerPixel = 15;

/// Colours in blue-green-red order, 0xBBGGRR. A default colour is the system's.
using Colour = std::int32_t;
namespace colour {
inline constexpr Colour kDefault = -1;
inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kBlue = 0xFF0000;
inline constexpr Colour kYellow = 65535;
inline constexpr Colour kWhite = 16777215;
}  // namespace colour

struct Font {
  Text Name;        // empty: the system's
  double Size = 0;  // points; 0: the system's
  bool Bold = false;
  bool Underline = false;
  bool operator==(const Font&) const = default;
};

/// A picture in the host's terms: the bytes of a bitmap or cursor file, and the same subject as
/// SVG for hosts that scale, if there is one. Compared by identity.
struct PictureData {
  std::string Bytes;
  std::string Drawing;
  Text Description;  // for who can't see it
};
using Picture = std::shared_ptr<const PictureData>;
inline Text WordsOf(const Picture& picture) { return picture ? picture->Description : Text(); }

}  // namespace brelmon
