// SPDX-License-Identifier: GPL-2.0-or-later
// The contents-view gate and the rules by which commands are enabled.
#include "frame/documentmodel.h"

#include "frame/guard.h"
#include "platform/services.h"

namespace brelmon {
namespace {

/// A layer or a table by its own validity, a set by any valid feature layer in it: a command that
/// acts on a set of tables alone stays disabled, though its click would work.
bool ContentsValid(const Ref<IMxDocument>& document, const Accepts& accepts) {
  const auto item = ActiveItem(document, accepts);
  if (!item) return false;
  if (!item.Offers<ISet>()) return IsValidItem(item);
  return !ForEachMember(item, [](const Ref<IObject>& member) {
    return !(member.Offers<IFeatureLayer>() && IsValidItem(member));
  });
}

bool Graphics(const Ref<IMxDocument>& document) {
  const auto map = document->FocusMap();
  return ContentsValid(document, {.Layer = true, .Table = false, .Set = true, .Map = false}) &&
         map->ActiveGraphicsLayer()->ElementSelectionCount() > 0;
}

bool MapHasData(const Ref<IMxDocument>& document) {
  bool found = false;
  // A layer that can't be looked at is passed over: no reason to show a failure at each poll, nor
  // to leave those behind it unseen.
  Guard::Ignore([&] {
    WalkFeatureLayers(document->FocusMap(), [&](const Ref<ILayer>& layer) {
      Guard::Ignore([&] { found = layer->Valid(); });
      return !found;
    });
  });
  if (!found) {
    WalkTables(document->FocusMap(),
               [&](const Ref<IStandaloneTable>& table) { return !(found = table->Valid()); });
  }
  return found;
}

bool HasSelection(const Ref<IObject>& item) {
  const auto selection = item.As<ITableSelection>()->SelectionSet();
  return selection && selection->Count() > 0;
}

bool AnySelection(const Ref<IMxDocument>& document) {
  const auto maps = document->Maps();
  bool found = false;
  for (std::int32_t i = 0; i < maps->Count() && !found; ++i) {
    const auto map = maps->Item(i);
    WalkTables(map,
               [&](const Ref<IStandaloneTable>& table) { return !(found = HasSelection(table)); });
    if (found || map->LayerCount() <= 0) continue;
    WalkLayers(map->Layers(nullptr, true), [&](const Ref<ILayer>& layer) {
      return !(found = layer.Offers<IFeatureLayer>() && HasSelection(layer));
    });
  }
  return found;
}

}  // namespace

Ref<IObject> ActiveItem(const Ref<IMxDocument>& document, const Accepts& accepts) {
  const auto view = document->CurrentContentsView();
  const Text tab = view->Name();
  if (tab != u"Display" && tab != u"Source") return {};
  const Value selected = view->SelectedItem();
  if (!selected.IsObject()) return {};
  const auto item = selected.ToObject();
  const bool accepted = (accepts.Layer && item.Offers<IFeatureLayer>()) ||
                        (accepts.Table && item.Offers<IStandaloneTable>()) ||
                        (accepts.Set && item.Offers<ISet>()) ||
                        (accepts.Map && item.Offers<IMap>());
  return accepted ? item : nullptr;
}

void WalkLayers(const Ref<IEnumLayer>& layers,
                const std::function<bool(const Ref<ILayer>&)>& visit) {
  layers->Reset();
  for (auto layer = layers->Next(); layer; layer = layers->Next()) {
    if (!visit(layer)) return;
  }
}

void WalkTables(const Ref<IMap>& map,
                const std::function<bool(const Ref<IStandaloneTable>&)>& visit) {
  const auto tables = map.As<IStandaloneTableCollection>();
  const std::int32_t count = tables->StandaloneTableCount();
  for (std::int32_t i = 0; i < count; ++i) {
    if (!visit(tables->StandaloneTable(i))) return;
  }
}

void WalkFeatureLayers(const Ref<IMap>& map, const std::function<bool(const Ref<ILayer>&)>& visit) {
  const auto uid = New<UID>(Text(kFeatureLayerUID));
  Ref<IEnumLayer> layers;
  Ref<ILayer> layer;
  Guard::Ignore([&] {
    layers = map->Layers(uid, true);
    layers->Reset();
    layer = layers->Next();
  });
  while (layer && visit(layer)) layer = layers->Next();
}

void ForEachValidItem(const Ref<IMap>& map, const std::function<void(const Ref<IObject>&)>& visit) {
  if (map->LayerCount() > 0) {
    WalkLayers(map->Layers(nullptr, true), [&](const Ref<ILayer>& layer) {
      if (layer.Offers<IFeatureLayer>() && layer->Valid()) visit(layer);
      return true;
    });
  }
  WalkTables(map, [&](const Ref<IStandaloneTable>& table) {
    if (table->Valid()) visit(table);
    return true;
  });
}

bool IsEnabled(EnabledRule rule, const Ref<IMxDocument>& document) {
  switch (rule) {
    case EnabledRule::Always:
      return true;
    case EnabledRule::ContentsAny:
      return static_cast<bool>(ActiveItem(document, {}));
    case EnabledRule::ContentsValid:
      return ContentsValid(document, {});
    case EnabledRule::ContentsOne:
      return ContentsValid(document, {.Layer = true, .Table = true, .Set = false, .Map = false});
    case EnabledRule::ContentsDeletable:
      return static_cast<bool>(
          ActiveItem(document, {.Layer = true, .Table = true, .Set = true, .Map = true}));
    case EnabledRule::Graphics:
      return Graphics(document);
    case EnabledRule::MapHasData:
      return MapHasData(document);
    case EnabledRule::AnySelection:
      return AnySelection(document);
  }
  return false;
}

void ShowInvalidData(const Text& name, TextView tail) {
  MsgBox(u"There is something wrong with " + name + u"!  It is not a valid " + Text(tail),
         box::kInformation, u"Problem with Data:");
}

bool IsValidItem(const Ref<IObject>& item) {
  if (item.Offers<IFeatureLayer>()) return item.As<ILayer>()->Valid();
  if (item.Offers<IStandaloneTable>()) return item.As<IStandaloneTable>()->Valid();
  return false;
}

Text ItemName(const Ref<IObject>& item) {
  if (item.Offers<IFeatureLayer>()) return item.As<ILayer>()->Name();
  if (item.Offers<IStandaloneTable>()) return item.As<IStandaloneTable>()->Name();
  return {};
}

}  // namespace brelmon
