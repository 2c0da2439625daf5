// SPDX-License-Identifier: GPL-2.0-or-later
// What shapes have in common: points in rings, segments that meet.
#include "hosts/web/shapes.h"

#include <algorithm>

namespace brelmon::web {
namespace {

struct Point {
  double x, y;
};

/// Twice the signed area of a triangle: positive where `c` lies left of the way from `a` to `b`.
double Turn(Point a, Point b, Point c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool InBox(Point a, Point b, Point c) {
  return std::min(a.x, b.x) <= c.x && c.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= c.y &&
         c.y <= std::max(a.y, b.y);
}

bool OnSegment(Point a, Point b, Point c) { return InBox(a, b, c) && Turn(a, b, c) == 0; }

bool SegmentsMeet(Point a, Point b, Point c, Point d) {
  if (std::max(a.x, b.x) < std::min(c.x, d.x) || std::max(c.x, d.x) < std::min(a.x, b.x) ||
      std::max(a.y, b.y) < std::min(c.y, d.y) || std::max(c.y, d.y) < std::min(a.y, b.y)) {
    return false;
  }
  const double one = Turn(a, b, c), two = Turn(a, b, d);
  const double three = Turn(c, d, a), four = Turn(c, d, b);
  const bool apart = (one > 0 && two > 0) || (one < 0 && two < 0) || (three > 0 && four > 0) ||
                     (three < 0 && four < 0);
  return !apart;
}

/// One shape of a store.
class Shape {
 public:
  Shape(const ShapeStore& store, std::size_t at)
      : store_(store),
        first_(store.FirstPart(at)),
        end_(store.shapeEnds[at]),
        kind_(store.kinds[at]),
        bounds_(store.bounds[at]) {}
  ShapeKind Kind() const { return kind_; }
  const Bounds& Box() const { return bounds_; }

  /// Whether `test` holds for one of the points, or of the segments.
  template <class Test>
  bool AnyPoint(Test test) const {
    const std::uint32_t end = end_ == first_ ? 0 : store_.partEnds[end_ - 1];
    for (std::uint32_t i = store_.FirstPoint(first_); i < end; ++i) {
      if (test(At(i))) return true;
    }
    return false;
  }
  template <class Test>
  bool AnyPart(Test test) const {
    for (std::uint32_t part = first_; part < end_; ++part) {
      if (test(At(store_.FirstPoint(part)))) return true;
    }
    return false;
  }
  template <class Test>
  bool AnySegment(Test test) const {
    for (std::uint32_t part = first_; part < end_; ++part) {
      for (std::uint32_t i = store_.FirstPoint(part) + 1; i < store_.partEnds[part]; ++i) {
        if (test(At(i - 1), At(i))) return true;
      }
    }
    return false;
  }

  /// Inside of the polygon or on something of the shape.
  bool Covers(Point point) const {
    if (kind_ == ShapeKind::Points) {
      return AnyPoint([&](Point own) { return own.x == point.x && own.y == point.y; });
    }
    bool inside = false, on = false;
    AnySegment([&](Point a, Point b) {
      on = OnSegment(a, b, point);
      if ((a.y > point.y) != (b.y > point.y) &&
          point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) {
        inside = !inside;
      }
      return on;
    });
    return on || (inside && kind_ == ShapeKind::Polygons);
  }

 private:
  Point At(std::uint32_t point) const {
    return {store_.xy[std::size_t{point} * 2], store_.xy[std::size_t{point} * 2 + 1]};
  }
  const ShapeStore& store_;
  std::uint32_t first_, end_;
  ShapeKind kind_;
  const Bounds& bounds_;
};

bool AnyPointIn(const Shape& points, const Shape& other) {
  return points.AnyPoint([&](Point point) { return other.Covers(point); });
}

/// Of shapes whose lines don't cross: a part that begins in the other lies in it.
bool AnyPartIn(const Shape& one, const Shape& other) {
  return one.AnyPart([&](Point first) { return other.Covers(first); });
}

}  // namespace

void ShapeStore::EndShape(ShapeKind kind) {
  Bounds box;
  const std::uint32_t first = Size() == 0 ? 0 : shapeEnds.back();
  for (std::size_t i = FirstPoint(first); i < xy.size() / 2; ++i) box.Add(xy[i * 2], xy[i * 2 + 1]);
  shapeEnds.push_back(static_cast<std::uint32_t>(partEnds.size()));
  kinds.push_back(box.empty ? ShapeKind::None : kind);
  bounds.push_back(box);
}

bool Intersects(const ShapeStore& store, std::size_t at, const ShapeStore& others,
                std::size_t place) {
  const Shape one(store, at), other(others, place);
  if (!one.Box().Meets(other.Box())) return false;
  if (one.Kind() == ShapeKind::Points) return AnyPointIn(one, other);
  if (other.Kind() == ShapeKind::Points) return AnyPointIn(other, one);
  const bool crossing = one.AnySegment([&](Point a, Point b) {
    return other.AnySegment([&](Point c, Point d) { return SegmentsMeet(a, b, c, d); });
  });
  if (crossing) return true;
  // Nothing crosses: one lies wholly in the other, or they are apart.
  return (other.Kind() == ShapeKind::Polygons && AnyPartIn(one, other)) ||
         (one.Kind() == ShapeKind::Polygons && AnyPartIn(other, one));
}

}  // namespace brelmon::web
