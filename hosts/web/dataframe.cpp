// SPDX-License-Identifier: GPL-2.0-or-later
// Extents out of what was published, and shapes that a student draws.
#include "hosts/web/dataframe.h"

#include "hosts/web/graphics.h"
#include "hosts/web/items.h"

namespace brelmon::web {
namespace {

class DataFrame : public document::DataFrame, public IPageFrame {
 public:
  DataFrame(document::FrameSettings settings, std::function<void(int)> moved)
      : document::DataFrame(std::move(settings)), moved_(std::move(moved)) {
    static int last = 0;
    id_ = --last;  // items count upwards
  }
  int Id() const override { return id_; }

 protected:
  Bounds WholeExtent() const override {
    Bounds whole;
    for (const document::TreeItem& item : Items()) {
      const auto table = item.object.TryAs<ITableItem>();
      if (table && table->Data() && table->Data()->Valid()) {
        whole.Add(table->Data()->Facts().extent);
      }
    }
    return whole;
  }
  Ref<IGeometry> GeometryOf(const std::string& wkt) const override {
    return New<ShapeObject>(ShapeOfWkt(wkt));
  }
  void Moved() override {
    if (moved_) moved_(id_);
  }

 private:
  std::function<void(int)> moved_;
  int id_ = 0;
};

}  // namespace

Ref<IMap> NewDataFrame(document::FrameSettings settings, std::function<void(int id)> moved) {
  return New<DataFrame>(std::move(settings), std::move(moved));
}

int FrameId(const Ref<IMap>& frame) { return frame.As<IPageFrame>()->Id(); }

}  // namespace brelmon::web
