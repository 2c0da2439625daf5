// SPDX-License-Identifier: GPL-2.0-or-later
// How one value of a control follows the size of its container.
#pragma once

#include <cstdint>

namespace brelmon {

/// Kinds of anchoring along one axis; near is left or top.
enum AnchorKind : std::int32_t {
  AnchorScaled = 0,       // position and size scale with the container
  AnchorFixedScaled = 1,  // position stays, size scales
  AnchorFixed = 2,        // stands still
  AnchorStretch = 3,      // keeps both margins
  AnchorCentred = 4,      // the centre scales, size stays
  AnchorFarEdge = 5,      // keeps the distance to the far edge, size stays
  AnchorFarScaled = 6,    // size scales, keeps the far margin
};

struct Anchor {
  std::int32_t AnchorType = 0;
  std::int32_t MinValue = -2147483647;  // carried, never read
  std::int32_t MaxValue = 2147483647;   // carried, never read
  float Value = 0;                      // twips or a share of the container, by kind
};

}  // namespace brelmon
