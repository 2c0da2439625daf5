// SPDX-License-Identifier: GPL-2.0-or-later
// The tree of a frame, its graphics and its view.
#include "hosts/headless/dataframe.h"

#include <algorithm>
#include <optional>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/headless/graphics.h"
#include "hosts/headless/shape.h"
#include "hosts/headless/table.h"

namespace brelmon::headless {
namespace {

class DataFrame : public IDataFrame,
                  public IMap,
                  public IStandaloneTableCollection,
                  public IActiveView,
                  public IDisplay,
                  public IDisplayTransformation,
                  public std::enable_shared_from_this<DataFrame> {
 public:
  explicit DataFrame(FrameSettings settings)
      : settings_(std::move(settings)), graphics_(std::make_shared<GraphicsLayer>()) {}

  // Tree.
  std::vector<TreeItem> Items() override { return items_; }
  bool Visible() override { return settings_.visible; }
  bool Expanded() override { return settings_.expanded; }
  void Append(const Ref<IObject>& item, const Ref<IObject>& group) override {
    const std::size_t parent = group ? Find(group) : items_.size();
    if (parent == items_.size()) {
      items_.push_back({item, 0});
    } else {
      items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(End(parent)),
                    {item, items_[parent].depth + 1});
    }
  }

  // Map.
  Text Name() override { return settings_.name; }
  void SetName(const Text& name) override { settings_.name = name; }
  std::int32_t LayerCount() override {
    return static_cast<std::int32_t>(std::count_if(items_.begin(), items_.end(), [](auto& item) {
      return item.depth == 0 && item.object.template Offers<ILayer>();
    }));
  }
  Ref<IEnumLayer> Layers(const Ref<UID>& uid, bool recursive) override {
    const bool featureLayers = uid && EqualNoCase(uid->Value, kFeatureLayerUID);
    std::vector<Ref<ILayer>> layers;
    for (const TreeItem& item : items_) {
      const bool kind = !uid || (featureLayers && item.object.Offers<IFeatureLayer>());
      const Ref<ILayer> layer = item.object.TryAs<ILayer>();
      if (layer && kind && (recursive || item.depth == 0)) layers.push_back(layer);
    }
    if (layers.empty()) host::Fail(failure::kRefused, "The map has no layers of that kind.");
    return host::NewEnumLayer(std::move(layers));
  }
  void AddLayer(const Ref<ILayer>& layer) override {
    if (!layer) host::Fail(failure::kObjectNotSet);
    items_.insert(items_.begin(), {layer, 0});
    if (const auto table = layer.TryAs<IHostTable>()) table->SetGone(false);
  }
  void DeleteLayer(const Ref<ILayer>& layer) override { Take(Find(layer)); }
  void SetExpanded(bool expanded) override { settings_.expanded = expanded; }
  Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() override { return {graphics_}; }

  // Tables.
  std::int32_t StandaloneTableCount() override {
    return static_cast<std::int32_t>(Tables().size());
  }
  Ref<IStandaloneTable> StandaloneTable(std::int32_t index) override {
    const std::vector<Ref<IStandaloneTable>> tables = Tables();
    if (index < 0 || static_cast<std::size_t>(index) >= tables.size()) {
      host::Fail(failure::kSubscript);
    }
    return tables[static_cast<std::size_t>(index)];
  }
  void AddStandaloneTable(const Ref<IStandaloneTable>& table) override {
    if (!table) host::Fail(failure::kObjectNotSet);
    items_.push_back({table, 0});
    if (const auto own = table.TryAs<IHostTable>()) own->SetGone(false);
  }
  void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) override { Take(Find(table)); }

  // View. There is nothing to be drawn.
  void PartialRefresh(DrawPhase, const Ref<IObject>&, const Ref<IEnvelope>&) override {}
  void Refresh() override {}
  Ref<IEnvelope> Extent() override { return extent_ ? EnvelopeOf(*extent_) : FullExtent(); }
  Ref<IEnvelope> FullExtent() override {
    OGREnvelope whole;
    for (const TreeItem& item : items_) {
      const Ref<IHostTable> table = item.object.TryAs<IHostTable>();
      OGREnvelope own;
      if (table && table->Source() && table->Source()->Extent(own)) {
        whole.Merge(Transformed(own, table->ReferenceSystem(), settings_.crs.get()));
      }
    }
    return whole.IsInit() ? EnvelopeOf(whole) : host::NewEnvelope();
  }
  Ref<IDisplay> ScreenDisplay() override { return {shared_from_this()}; }
  Ref<IDisplayTransformation> DisplayTransformation() override { return {shared_from_this()}; }
  void SetVisibleBounds(const Ref<IEnvelope>& bounds) override {
    OGREnvelope box;
    bounds->QueryCoords(box.MinX, box.MinY, box.MaxX, box.MaxY);
    extent_ = box;
  }
  void SetExtent(const OGREnvelope& extent) override { extent_ = extent; }

  // Graphics.
  std::shared_ptr<const OGRSpatialReference> ReferenceSystem() override { return settings_.crs; }
  void SetGraphics(const std::vector<std::string>& wkts) override {
    std::vector<Ref<IElement>> elements;
    for (const std::string& wkt : wkts) {
      elements.push_back(NewElement(New<Shape>(GeometryOfWkt(wkt), settings_.crs)));
    }
    graphics_->Select(std::move(elements));
  }

 private:
  static Ref<IEnvelope> EnvelopeOf(const OGREnvelope& box) {
    const Ref<IEnvelope> envelope = host::NewEnvelope();
    envelope->PutCoords(box.MinX, box.MinY, box.MaxX, box.MaxY);
    return envelope;
  }

  std::vector<Ref<IStandaloneTable>> Tables() const {
    std::vector<Ref<IStandaloneTable>> tables;
    for (const TreeItem& item : items_) {
      if (const auto table = item.object.TryAs<IStandaloneTable>()) tables.push_back(table);
    }
    return tables;
  }

  /// Place of an item; the number of items if it isn't there.
  template <class T>
  std::size_t Find(const Ref<T>& object) const {
    std::size_t at = 0;
    while (at < items_.size() && !Same(items_[at].object, object)) ++at;
    return at;
  }

  /// Behind the last item below the one at `at`.
  std::size_t End(std::size_t at) const {
    std::size_t end = at + 1;
    while (end < items_.size() && items_[end].depth > items_[at].depth) ++end;
    return end;
  }

  void Take(std::size_t at) {
    if (at == items_.size()) return;
    const auto first = items_.begin() + static_cast<std::ptrdiff_t>(at);
    const auto last = items_.begin() + static_cast<std::ptrdiff_t>(End(at));
    const std::vector<TreeItem> taken(first, last);
    items_.erase(first, last);
    for (const TreeItem& item : taken) {
      if (settings_.removed) settings_.removed(item.object);
    }
  }

  FrameSettings settings_;
  std::vector<TreeItem> items_;  // in tree order, each below the nearest before it of less depth
  std::shared_ptr<GraphicsLayer> graphics_;
  std::optional<OGREnvelope> extent_;
};

}  // namespace

Ref<IMap> NewDataFrame(FrameSettings settings) { return New<DataFrame>(std::move(settings)); }

}  // namespace brelmon::headless
