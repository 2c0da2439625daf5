// SPDX-License-Identifier: GPL-2.0-or-later
// Layers with a name and nothing to ask.
#include "hosts/headless/rasterlayer.h"

#include <optional>

#include "hosts/data/openpolicy.h"
#include "hosts/headless/problem.h"

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

/// Opened when somebody asks for the first time.
class RasterLayer : public ILayer, public IProblem {
 public:
  RasterLayer(Text name, std::string provider, data::SourceAddress source)
      : name_(std::move(name)), provider_(std::move(provider)), source_(std::move(source)) {}
  Text Name() override { return name_; }
  bool Valid() override { return Problem().empty(); }
  std::string Problem() override {
    if (!problem_) {
      problem_.emplace();
      if (provider_ == "gdal") data::OpenData(source_, data::Content::Pixels, *problem_);
    }
    return *problem_;
  }

 private:
  Text name_;
  std::string provider_;
  data::SourceAddress source_;
  std::optional<std::string> problem_;
};

}  // namespace

Ref<ILayer> NewRasterLayer(Text name, std::string provider, data::SourceAddress source) {
  return New<RasterLayer>(std::move(name), std::move(provider), std::move(source));
}

Ref<ILayer> NewGroupLayer(Text name) { return New<GroupLayer>(std::move(name)); }

}  // namespace brelmon::headless
