// SPDX-License-Identifier: GPL-2.0-or-later
// The tree of a frame, and its view.
#include "hosts/document/dataframe.h"

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/document/table.h"

namespace brelmon::document {
namespace {

Ref<IEnvelope> EnvelopeOf(const Bounds& box) {
  const Ref<IEnvelope> envelope = host::NewEnvelope();
  if (!box.empty) envelope->PutCoords(box.xMin, box.yMin, box.xMax, box.yMax);
  return envelope;
}

}  // namespace

void DataFrame::SetVisible(bool visible) {
  settings_.visible = visible;
  Changed();
}

void DataFrame::Append(const Ref<IObject>& item, const Ref<IObject>& group) {
  const std::size_t parent = group ? Find(group) : items_.size();
  if (parent == items_.size()) {
    items_.push_back({item, 0});
  } else {
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(End(parent)),
                  {item, items_[parent].depth + 1});
  }
}

void DataFrame::SetGraphics(const std::vector<std::string>& wkts) {
  std::vector<Ref<IElement>> elements;
  for (const std::string& wkt : wkts) elements.push_back(NewElement(GeometryOf(wkt)));
  graphics_->Select(std::move(elements));
}

void DataFrame::SetName(const Text& name) {
  settings_.name = name;
  Changed();
}

void DataFrame::SetExpanded(bool expanded) {
  settings_.expanded = expanded;
  Changed();
}

std::int32_t DataFrame::LayerCount() {
  return static_cast<std::int32_t>(std::count_if(
      items_.begin(), items_.end(),
      [](const TreeItem& item) { return item.depth == 0 && item.object.Offers<ILayer>(); }));
}

Ref<IEnumLayer> DataFrame::Layers(const Ref<UID>& uid, bool recursive) {
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

void DataFrame::AddLayer(const Ref<ILayer>& layer) {
  if (!layer) host::Fail(failure::kObjectNotSet);
  items_.insert(items_.begin(), {layer, 0});
  Joined(layer);
}

std::int32_t DataFrame::StandaloneTableCount() {
  return static_cast<std::int32_t>(Tables().size());
}

Ref<IStandaloneTable> DataFrame::StandaloneTable(std::int32_t index) {
  const std::vector<Ref<IStandaloneTable>> tables = Tables();
  if (index < 0 || static_cast<std::size_t>(index) >= tables.size()) {
    host::Fail(failure::kSubscript);
  }
  return tables[static_cast<std::size_t>(index)];
}

void DataFrame::AddStandaloneTable(const Ref<IStandaloneTable>& table) {
  if (!table) host::Fail(failure::kObjectNotSet);
  items_.push_back({table, 0});
  Joined(table);
}

Ref<IEnvelope> DataFrame::Extent() { return EnvelopeOf(shown_.empty ? WholeExtent() : shown_); }
Ref<IEnvelope> DataFrame::FullExtent() { return EnvelopeOf(WholeExtent()); }

void DataFrame::SetVisibleBounds(const Ref<IEnvelope>& bounds) {
  Bounds box;
  bounds->QueryCoords(box.xMin, box.yMin, box.xMax, box.yMax);
  box.empty = false;
  shown_ = box;
  Moved();
}

void DataFrame::Joined(const Ref<IObject>& item) const {
  if (const auto member = item.TryAs<IMapMember>()) member->SetGone(false);
  Changed();
}

std::vector<Ref<IStandaloneTable>> DataFrame::Tables() const {
  std::vector<Ref<IStandaloneTable>> tables;
  for (const TreeItem& item : items_) {
    if (const auto table = item.object.TryAs<IStandaloneTable>()) tables.push_back(table);
  }
  return tables;
}

/// Place of an item; the number of items if it isn't there.
std::size_t DataFrame::Find(const Ref<IObject>& object) const {
  std::size_t at = 0;
  while (at < items_.size() && !Same(items_[at].object, object)) ++at;
  return at;
}

/// Behind the last item below the one at `at`.
std::size_t DataFrame::End(std::size_t at) const {
  std::size_t end = at + 1;
  while (end < items_.size() && items_[end].depth > items_[at].depth) ++end;
  return end;
}

void DataFrame::Take(std::size_t at) {
  if (at == items_.size()) return;
  const auto first = items_.begin() + static_cast<std::ptrdiff_t>(at);
  const auto last = items_.begin() + static_cast<std::ptrdiff_t>(End(at));
  const std::vector<TreeItem> taken(first, last);
  items_.erase(first, last);
  for (const TreeItem& item : taken) {
    if (settings_.removed) settings_.removed(item.object);
  }
  Changed();
}

}  // namespace brelmon::document
