// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes of a table in flat arrays, and what they have in common with other shapes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "hosts/document/bounds.h"

namespace brelmon::web {

enum class ShapeKind : std::uint8_t { None, Points, Lines, Polygons };

using document::Bounds;

/// Points: each part is one run of points. Lines: a part each. Polygons: a part each ring; a point
/// is inside where an odd number of rings is around it, so that holes and islands need no mark.
struct ShapeStore {
  std::vector<double> xy;                // x, y by turns
  std::vector<std::uint32_t> partEnds;   // in points, from the store's first
  std::vector<std::uint32_t> shapeEnds;  // in parts; one for each shape
  std::vector<ShapeKind> kinds;          // likewise
  std::vector<Bounds> bounds;            // likewise

  std::size_t Size() const { return shapeEnds.size(); }
  std::uint32_t FirstPart(std::size_t shape) const { return shape == 0 ? 0 : shapeEnds[shape - 1]; }
  std::uint32_t FirstPoint(std::uint32_t part) const { return part == 0 ? 0 : partEnds[part - 1]; }
  void AddPoint(double x, double y) { xy.insert(xy.end(), {x, y}); }
  void EndPart() { partEnds.push_back(static_cast<std::uint32_t>(xy.size() / 2)); }
  /// Ends a shape of the parts since the last one; without points it is of kind None.
  void EndShape(ShapeKind kind);
};

/// Whether two shapes share a point, borders included.
bool Intersects(const ShapeStore& one, std::size_t at, const ShapeStore& other, std::size_t place);

/// A well-known text of points, lines, polygons or several of them as the only shape of a store.
/// Throws std::runtime_error for anything else.
ShapeStore ShapeOfWkt(const std::string& wkt);

}  // namespace brelmon::web
