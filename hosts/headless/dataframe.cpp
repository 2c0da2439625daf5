// SPDX-License-Identifier: GPL-2.0-or-later
// The extent of layers in several reference systems, and shapes in the frame's own.
#include "hosts/headless/dataframe.h"

#include "hosts/headless/shape.h"
#include "hosts/headless/table.h"

namespace brelmon::headless {
namespace {

class DataFrame : public document::DataFrame {
 public:
  DataFrame(document::FrameSettings settings, std::shared_ptr<const OGRSpatialReference> crs)
      : document::DataFrame(std::move(settings)), crs_(std::move(crs)) {}

 protected:
  document::Bounds WholeExtent() const override {
    document::Bounds whole;
    for (const document::TreeItem& item : Items()) {
      const Ref<IHostTable> table = item.object.TryAs<IHostTable>();
      OGREnvelope own;
      if (!table || !table->Source() || !table->Source()->Extent(own)) continue;
      const OGREnvelope here = Transformed(own, table->ReferenceSystem(), crs_.get());
      whole.Add({here.MinX, here.MinY, here.MaxX, here.MaxY, !here.IsInit()});
    }
    return whole;
  }
  Ref<IGeometry> GeometryOf(const std::string& wkt) const override {
    return New<Shape>(GeometryOfWkt(wkt), crs_);
  }

 private:
  std::shared_ptr<const OGRSpatialReference> crs_;
};

}  // namespace

Ref<IMap> NewDataFrame(document::FrameSettings settings,
                       std::shared_ptr<const OGRSpatialReference> crs) {
  return New<DataFrame>(std::move(settings), std::move(crs));
}

}  // namespace brelmon::headless
