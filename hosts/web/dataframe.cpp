// SPDX-License-Identifier: GPL-2.0-or-later
// The tree of a frame, its graphics and its view.
#include "hosts/web/dataframe.h"

#include <algorithm>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"

namespace brelmon::web {
namespace {

class DataFrame : public IDataFrame,
                  public IMap,
                  public IStandaloneTableCollection,
                  public IActiveView,
                  public IDisplay,
                  public IDisplayTransformation,
                  public std::enable_shared_from_this<DataFrame> {
 public:
  explicit DataFrame(FrameSettings settings) : settings_(std::move(settings)) {
    static int last = 0;
    id_ = --last;  // items count upwards
  }

  // The page.
  int Id() const override { return id_; }
  bool Visible() const override { return settings_.visible; }
  void SetVisible(bool visible) override {
    settings_.visible = visible;
    Changed();
  }
  bool Expanded() const override { return settings_.expanded; }
  const std::vector<TreeItem>& Items() const override { return items_; }
  void Append(const ModuleItem& item, const Sources& sources, int depth) override {
    items_.push_back({NewItem(item, sources), depth});
    for (const ModuleItem& child : item.items) Append(child, sources, depth + 1);
  }
  GraphicsLayer& Graphics() override { return *graphics_; }
  const Bounds& Shown() const override { return shown_; }
  void SetShown(const Bounds& box) override { shown_ = box; }

  // Map.
  Text Name() override { return settings_.name; }
  void SetName(const Text& name) override {
    settings_.name = name;
    Changed();
  }
  std::int32_t LayerCount() override {
    return static_cast<std::int32_t>(std::count_if(
        items_.begin(), items_.end(),
        [](const TreeItem& item) { return item.depth == 0 && item.object.Offers<ILayer>(); }));
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
    Joined(layer);
  }
  void DeleteLayer(const Ref<ILayer>& layer) override { Take(Find(layer)); }
  void SetExpanded(bool expanded) override {
    settings_.expanded = expanded;
    Changed();
  }
  Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() override { return {graphics_}; }

  // Tables.
  std::int32_t StandaloneTableCount() override {
    return static_cast<std::int32_t>(Tables().size());
  }
  Ref<IStandaloneTable> StandaloneTable(std::int32_t index) override {
    const auto tables = Tables();
    if (index < 0 || static_cast<std::size_t>(index) >= tables.size()) {
      host::Fail(failure::kSubscript);
    }
    return tables[static_cast<std::size_t>(index)];
  }
  void AddStandaloneTable(const Ref<IStandaloneTable>& table) override {
    if (!table) host::Fail(failure::kObjectNotSet);
    items_.push_back({table, 0});
    Joined(table);
  }
  void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) override { Take(Find(table)); }

  // View.
  void PartialRefresh(DrawPhase, const Ref<IObject>&, const Ref<IEnvelope>&) override { Changed(); }
  void Refresh() override { Changed(); }
  Ref<IEnvelope> Extent() override { return shown_.empty ? FullExtent() : EnvelopeOf(shown_); }
  Ref<IEnvelope> FullExtent() override {
    Bounds whole;
    for (const TreeItem& item : items_) {
      const auto table = item.object.TryAs<ITableItem>();
      if (table && table->Data() && table->Data()->Valid()) {
        whole.Add(table->Data()->Facts().extent);
      }
    }
    return EnvelopeOf(whole);
  }
  Ref<IDisplay> ScreenDisplay() override { return {shared_from_this()}; }
  Ref<IDisplayTransformation> DisplayTransformation() override { return {shared_from_this()}; }
  void SetVisibleBounds(const Ref<IEnvelope>& bounds) override {
    Bounds box;
    bounds->QueryCoords(box.xMin, box.yMin, box.xMax, box.yMax);
    box.empty = false;
    shown_ = box;
    if (settings_.moved) settings_.moved(*this);
  }

 private:
  static Ref<IEnvelope> EnvelopeOf(const Bounds& box) {
    const Ref<IEnvelope> envelope = host::NewEnvelope();
    if (!box.empty) envelope->PutCoords(box.xMin, box.yMin, box.xMax, box.yMax);
    return envelope;
  }
  void Changed() const {
    if (settings_.changed) settings_.changed();
  }
  void Joined(const Ref<IObject>& item) const {
    if (const auto table = item.TryAs<ITableItem>()) table->SetGone(false);
    Changed();
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
  /// With all that stands below it.
  void Take(std::size_t at) {
    if (at == items_.size()) return;
    std::size_t end = at + 1;
    while (end < items_.size() && items_[end].depth > items_[at].depth) ++end;
    const auto first = items_.begin() + static_cast<std::ptrdiff_t>(at);
    const auto last = items_.begin() + static_cast<std::ptrdiff_t>(end);
    const std::vector<TreeItem> taken(first, last);
    items_.erase(first, last);
    for (const TreeItem& item : taken) {
      if (settings_.removed) settings_.removed(item.object);
    }
    Changed();
  }

  FrameSettings settings_;
  int id_ = 0;
  std::vector<TreeItem> items_;
  std::shared_ptr<GraphicsLayer> graphics_ = std::make_shared<GraphicsLayer>();
  Bounds shown_;
};

}  // namespace

Ref<IMap> NewDataFrame(FrameSettings settings) { return New<DataFrame>(std::move(settings)); }

}  // namespace brelmon::web
