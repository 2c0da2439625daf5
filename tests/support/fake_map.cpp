// SPDX-License-Identifier: GPL-2.0-or-later
// Maps, the document and table windows of the fake world.
#include "tests/support/fake_map.h"

#include <algorithm>

namespace brelmon::test {
namespace {

template <class Base, class Item>
class ListOf : public Base {
 public:
  explicit ListOf(std::vector<Ref<Item>> items) : items_(std::move(items)) {}
  void Reset() override { next_ = 0; }
  Ref<Item> Next() override { return next_ < items_.size() ? items_[next_++] : nullptr; }

 protected:
  std::vector<Ref<Item>> items_;

 private:
  std::size_t next_ = 0;
};

class Set : public ListOf<ISet, IObject> {
 public:
  using ListOf::ListOf;
  std::int32_t Count() override { return static_cast<std::int32_t>(items_.size()); }
};

class ContentsViewOf : public IContentsView {
 public:
  ContentsViewOf(Ref<FakeDocument> document, std::size_t tab)
      : document_(std::move(document)), tab_(tab) {}
  Text Name() override {
    static const Text names[] = {u"Display", u"Source", u"Selection"};
    return names[tab_];
  }
  Value SelectedItem() override {
    const auto item = document_->SelectedItem();
    return item ? Value(item) : Value(Null{});
  }
  void RemoveFromSelectedItems(const Ref<IObject>& item) override {
    std::erase_if(document_->selection, [&](const auto& it) { return Same(it, item); });
    Note(document_->log, "RemoveFromSelectedItems");
  }
  void Refresh(const Ref<IObject>& item) override {
    Note(document_->log, "Refresh contents " + (item ? ToUtf8(item.As<IMap>()->Name()) : ""));
  }
  std::size_t Tab() const { return tab_; }

 private:
  Ref<FakeDocument> document_;
  std::size_t tab_;
};

void Gather(const std::vector<Ref<ILayer>>& layers, bool featureOnly, bool recursive,
            std::vector<Ref<ILayer>>& found) {
  for (const auto& layer : layers) {
    if (!featureOnly || layer.Offers<IFeatureLayer>()) found.push_back(layer);
    const auto group = layer.TryAs<FakeOtherLayer>();
    if (recursive && group) Gather(group->members, featureOnly, recursive, found);
  }
}

/// A map lets go of what it held at any depth, which is then gone.
template <class Item>
void LetGo(std::vector<Ref<Item>>& items, const Ref<Item>& item) {
  if (std::erase_if(items, [&](const auto& it) { return Same(it, item); }) != 0) {
    if (const auto rows = item.template TryAs<FakeRows>()) rows->gone = true;
    return;
  }
  if constexpr (std::is_same_v<Item, ILayer>) {
    for (const auto& each : items) {
      if (const auto group = each.template TryAs<FakeOtherLayer>()) LetGo(group->members, item);
    }
  }
}

template <class Item>
const Ref<Item>& Given(const Ref<Item>& item) {
  if (!item) host::Fail(failure::kObjectNotSet);
  return item;
}

}  // namespace

void FakeEnvelope::PutCoords(double xMin, double yMin, double xMax, double yMax) {
  const double given[4] = {xMin, yMin, xMax, yMax};
  std::copy(given, given + 4, bounds);
}

void FakeEnvelope::QueryCoords(double& xMin, double& yMin, double& xMax, double& yMax) {
  xMin = bounds[0], yMin = bounds[1], xMax = bounds[2], yMax = bounds[3];
}

namespace {
template <class Made>
Ref<Made> MakeRows(const Text& name, std::vector<FakeFieldSpec>&& fields, std::vector<Row>&& rows,
                   Log* log) {
  auto made = New<Made>();
  made->name = name;
  made->fields = std::move(fields);
  made->rows = std::move(rows);
  made->log = log;
  return made;
}
}  // namespace

Ref<FakeLayer> FakeMap::AddFeatureLayer(const Text& layerName, std::vector<FakeFieldSpec> fields,
                                        std::vector<Row> rows) {
  auto layer = MakeRows<FakeLayer>(layerName, std::move(fields), std::move(rows), log);
  layers.push_back(layer);
  return layer;
}

Ref<FakeStandaloneTable> FakeMap::AddTable(const Text& tableName, std::vector<FakeFieldSpec> fields,
                                           std::vector<Row> rows) {
  auto table = MakeRows<FakeStandaloneTable>(tableName, std::move(fields), std::move(rows), log);
  tables.push_back(table);
  return table;
}

Ref<FakeOtherLayer> FakeMap::AddOther(const Text& layerName, std::vector<Ref<ILayer>> members) {
  auto other = New<FakeOtherLayer>();
  other->name = layerName;
  other->members = std::move(members);
  layers.push_back(other);
  return other;
}

Ref<IEnumLayer> FakeMap::Layers(const Ref<UID>& uid, bool recursive) {
  std::vector<Ref<ILayer>> found;
  if (!uid || uid->Value == kFeatureLayerUID) Gather(layers, bool(uid), recursive, found);
  if (found.empty()) host::Fail(failure::kRefused, "The map has no such layers");
  return New<ListOf<IEnumLayer, ILayer>>(std::move(found));
}

void FakeMap::AddLayer(const Ref<ILayer>& layer) {
  layers.insert(layers.begin(), Given(layer));
  if (const auto rows = layer.TryAs<FakeRows>()) rows->gone = false;
  Note(log, "AddLayer " + ToUtf8(layer->Name()));
}

void FakeMap::DeleteLayer(const Ref<ILayer>& layer) {
  LetGo(layers, layer);
  Note(log, "DeleteLayer " + ToUtf8(layer->Name()));
}

Ref<IGraphicsContainerSelect> FakeMap::ActiveGraphicsLayer() {
  return Ref<FakeMap>(shared_from_this());
}

std::int32_t FakeMap::StandaloneTableCount() { return static_cast<std::int32_t>(tables.size()); }
Ref<IStandaloneTable> FakeMap::StandaloneTable(std::int32_t index) { return Of(tables, index); }

void FakeMap::AddStandaloneTable(const Ref<IStandaloneTable>& table) {
  tables.push_back(Given(table));
  Note(log, "AddStandaloneTable");
}

void FakeMap::RemoveStandaloneTable(const Ref<IStandaloneTable>& table) {
  LetGo(tables, table);
  Note(log, "RemoveStandaloneTable " + ToUtf8(table->Name()));
}

void FakeMap::PartialRefresh(DrawPhase phase, const Ref<IObject>& data, const Ref<IEnvelope>&) {
  Note(log, "PartialRefresh " + std::to_string(static_cast<int>(phase)) + (data ? " data" : ""));
}

void FakeMap::Refresh() { Note(log, "Refresh " + ToUtf8(name)); }
Ref<IDisplay> FakeMap::ScreenDisplay() { return Ref<FakeMap>(shared_from_this()); }
Ref<IDisplayTransformation> FakeMap::DisplayTransformation() {
  return Ref<FakeMap>(shared_from_this());
}

void FakeMap::SetVisibleBounds(const Ref<IEnvelope>& bounds) {
  double b[4];
  bounds->QueryCoords(b[0], b[1], b[2], b[3]);
  extent->PutCoords(b[0], b[1], b[2], b[3]);
  Note(log, "VisibleBounds " + ToUtf8(name));
}

std::int32_t FakeMap::ElementSelectionCount() { return static_cast<std::int32_t>(graphics.size()); }
Ref<IEnumElement> FakeMap::SelectedElements() {
  return New<ListOf<IEnumElement, IElement>>(graphics);
}

Ref<FakeMap> FakeDocument::AddMap(const Text& mapName) {
  auto map = New<FakeMap>();
  map->name = mapName;
  map->log = log;
  maps.push_back(map);
  return map;
}

void FakeDocument::SetActiveView(const Ref<IActiveView>& view) {
  const auto at = std::ranges::find_if(maps, [&](const auto& it) { return Same(it, view); });
  if (at == maps.end()) host::Fail(failure::kInvalidCall, "The view is no map of the document");
  focus = static_cast<std::size_t>(at - maps.begin());
  Note(log, "SetActiveView " + ToUtf8(view.As<IMap>()->Name()));
}

Ref<IMaps> FakeDocument::Maps() { return Ref<FakeDocument>(shared_from_this()); }

void FakeDocument::SetCurrentContentsView(const Ref<IContentsView>& view) {
  tab = Given(view).As<ContentsViewOf>()->Tab();
}

Ref<IContentsView> FakeDocument::ContentsView(std::int32_t index) {
  if (index < 0 || index > 2) host::Fail(failure::kSubscript);
  return New<ContentsViewOf>(Ref<FakeDocument>(shared_from_this()),
                             static_cast<std::size_t>(index));
}

Ref<IObject> FakeDocument::SelectedItem() {
  if (selection.empty()) return {};
  if (selection.size() == 1) return selection.front();
  return New<Set>(selection);
}

Ref<ICommandBars> FakeDocument::CommandBars() { return Ref<FakeDocument>(shared_from_this()); }
Ref<IMap> FakeDocument::Item(std::int32_t index) { return Of(maps, index); }

Ref<IMap> FakeDocument::Create() {
  auto map = New<FakeMap>();
  map->name.clear();
  map->log = log;
  return map;
}

void FakeDocument::Add(const Ref<IMap>& map) {
  const auto added = Given(map).As<FakeMap>();
  if (std::ranges::none_of(maps, [&](const auto& it) { return Same(it, added); })) {
    maps.push_back(added);
  }
}

void FakeDocument::Remove(const Ref<IMap>& map) {
  Given(map);
  const auto at =
      std::find_if(maps.begin(), maps.end(), [&](const auto& it) { return Same(it, map); });
  if (at == maps.end()) return;
  const auto index = static_cast<std::size_t>(at - maps.begin());
  maps.erase(at);
  if (focus > index || focus >= maps.size()) focus = focus == 0 ? 0 : focus - 1;
}

Ref<ITableWindow> FakeTableWindow::Find(const Ref<IObject>& wanted) {
  for (const auto& window : *all_) {
    if (window->open && Same(window->item, wanted)) return window;
  }
  return {};
}

Ref<ITableWindow> FakeTableWindow::FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool) {
  return Find(layer);
}

Ref<ITableWindow> FakeTableWindow::FindViaStandaloneTable(const Ref<IStandaloneTable>& table,
                                                          bool) {
  return Find(table);
}

void FakeTableWindow::Show(bool show) {
  if (!item) host::Fail(failure::kObjectNotSet);
  open = show;
}

void FakeTableWindow::SetTableSelectionAction(std::int32_t action) {
  settings.push_back("action " + std::to_string(action));
}

void FakeTableWindow::SetLayerDisplay(bool flag) {
  settings.push_back(flag ? "layer true" : "layer false");
}

void FakeTableWindow::SetTableDisplay(bool first, bool second) {
  settings.push_back(std::string("table ") + (first ? "true " : "false ") +
                     (second ? "true" : "false"));
}

}  // namespace brelmon::test
