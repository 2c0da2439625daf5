// SPDX-License-Identifier: GPL-2.0-or-later
// Layers with a name and nothing to ask.
#include "hosts/headless/rasterlayer.h"

#include <gdal_priv.h>

#include <optional>

namespace brelmon::headless {
namespace {

class GroupLayer : public ILayer, public IGroupLayer {
 public:
  explicit GroupLayer(Text name) : name_(std::move(name)) {}
  Text Name() override { return name_; }
  bool Valid() override { return true; }

 private:
  Text name_;
};

class RasterLayer : public ILayer {
 public:
  RasterLayer(Text name, std::string provider, std::string source)
      : name_(std::move(name)), provider_(std::move(provider)), source_(std::move(source)) {}
  Text Name() override { return name_; }
  bool Valid() override {
    if (!valid_) valid_ = provider_ != "gdal" || Opens();
    return *valid_;
  }

 private:
  bool Opens() const {
    return GDALDatasetUniquePtr(
               GDALDataset::Open(source_.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY)) != nullptr;
  }
  Text name_;
  std::string provider_, source_;
  std::optional<bool> valid_;
};

}  // namespace

Ref<ILayer> NewRasterLayer(Text name, std::string provider, std::string source) {
  return New<RasterLayer>(std::move(name), std::move(provider), std::move(source));
}

Ref<ILayer> NewGroupLayer(Text name) { return New<GroupLayer>(std::move(name)); }

}  // namespace brelmon::headless
