// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes of a source's rows, in another reference system.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/data/vectorsource.h"

namespace brelmon::publish {

/// Points, lines, polygons and what has several of them, in two dimensions.
class ShapeReader {
 public:
  ShapeReader(const std::shared_ptr<data::VectorSource>& source, const OGRSpatialReference* from,
              const OGRSpatialReference* to);

  /// Quick where rows are asked for in the source's order. Null for a row without a shape, or with
  /// one that has no place in the target system. The reader's own until the next call.
  OGRGeometry* ShapeOf(std::int64_t row);

  /// Of the shapes so far: "point", "line", "polygon" or "mixed"; where there was none, what the
  /// source declares. Empty for a source without shapes.
  std::string Kind() const;
  const OGREnvelope& Extent() const { return extent_; }
  std::int64_t Placeless() const { return placeless_; }

 private:
  void Convert();
  std::shared_ptr<data::VectorSource> source_;
  std::optional<data::VectorSource::Handle> rows_;
  std::unique_ptr<OGRCoordinateTransformation> transformation_;
  std::unique_ptr<OGRGeometry> shape_;
  std::string kind_, declared_;
  OGREnvelope extent_;
  std::int64_t placeless_ = 0;
};

}  // namespace brelmon::publish
