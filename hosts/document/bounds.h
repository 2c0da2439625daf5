// SPDX-License-Identifier: GPL-2.0-or-later
// A box in the units of whatever it bounds.
#pragma once

#include <algorithm>

namespace brelmon::document {

struct Bounds {
  double xMin = 0, yMin = 0, xMax = 0, yMax = 0;
  bool empty = true;

  void Add(double x, double y) {
    if (empty) {
      *this = {x, y, x, y, false};
      return;
    }
    xMin = std::min(xMin, x), yMin = std::min(yMin, y);
    xMax = std::max(xMax, x), yMax = std::max(yMax, y);
  }
  void Add(const Bounds& other) {
    if (other.empty) return;
    Add(other.xMin, other.yMin);
    Add(other.xMax, other.yMax);
  }
  bool Meets(const Bounds& other) const {
    return !empty && !other.empty && xMin <= other.xMax && other.xMin <= xMax &&
           yMin <= other.yMax && other.yMin <= yMax;
  }
};

}  // namespace brelmon::document
