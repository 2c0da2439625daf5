// SPDX-License-Identifier: GPL-2.0-or-later
// Removes the active themes from the document after one confirmation.
#include "layertools/cmdDeleteSelLayers.h"

#include "frame/documentmodel.h"
#include "platform/collection.h"
#include "platform/services.h"
#include "platform/windows.h"

namespace brelmon {
namespace {

void UnloadIfOpen(const Ref<ITableWindow>& window) {
  if (window) window->Unload();
}

/// Adds a deletable item to list and text, and closes its table window: before the question, so
/// that a user who answers Cancel keeps the item and has lost the window. Other kinds are skipped.
void Collect(const Ref<IObject>& item, bool inSet, Text& text, const Ref<IVariantArray>& list) {
  Text name;
  if (item.Offers<IFeatureLayer>()) {
    name = item.As<ILayer>()->Name();
    UnloadIfOpen(
        HostObjects().NewTableWindow()->FindViaFeatureLayer(item.As<IFeatureLayer>(), false));
  } else if (item.Offers<IStandaloneTable>()) {
    const auto table = item.As<IStandaloneTable>();
    name = table->Name();
    UnloadIfOpen(HostObjects().NewTableWindow()->FindViaStandaloneTable(table, false));
  } else if (item.Offers<IMap>()) {
    name = item.As<IMap>()->Name() + (inSet ? u" [Map Frame]" : u"");
  } else {
    return;
  }
  text += u"  --> " + name + u"\r\n";
  list->Add(item);
}

template <class Visit>
void ForEachMap(const Ref<IMxDocument>& document, Visit visit) {
  const auto maps = document->Maps();
  for (std::int32_t i = 0; i < maps->Count(); ++i) visit(maps->Item(i));
}

}  // namespace

cmdDeleteSelLayers::cmdDeleteSelLayers() : BrelmonCommand(u"cmdDeleteSelLayers") {}

void cmdDeleteSelLayers::DeleteMap(const Ref<IMap>& map) {
  const auto maps = m_pMxDoc->Maps();
  const bool hadFocus = Same(map, m_pMxDoc->FocusMap());
  if (maps->Count() == 1) {  // a document never stands without a data frame
    const auto fresh = maps->Create();
    fresh->SetName(u"Layers");
    maps->Add(fresh);
  }
  m_pMxDoc->CurrentContentsView()->RemoveFromSelectedItems(map);
  maps->Remove(map);
  if (hadFocus) m_pMxDoc->SetActiveView(m_pMxDoc->Maps()->Item(0).As<IActiveView>());
}

void cmdDeleteSelLayers::DeleteTable(const Ref<IStandaloneTable>& table) {
  ForEachMap(m_pMxDoc, [&](const Ref<IMap>& map) {
    WalkTables(map, [&](const Ref<IStandaloneTable>& each) {
      if (!Same(each, table)) return true;
      m_pMxDoc->CurrentContentsView()->RemoveFromSelectedItems(each);
      map.As<IStandaloneTableCollection>()->RemoveStandaloneTable(each);
      return false;
    });
  });
}

void cmdDeleteSelLayers::DeleteLayer(const Ref<ILayer>& layer) {
  ForEachMap(m_pMxDoc, [&](const Ref<IMap>& map) {
    m_pMxDoc->CurrentContentsView()->RemoveFromSelectedItems(layer);
    map->DeleteLayer(layer);
  });
}

void cmdDeleteSelLayers::OnClick() {
  Guard::Top(u"ICommand_OnClick", [&] {
    const auto item =
        ActiveItem(m_pMxDoc, {.Layer = true, .Table = true, .Set = true, .Map = true});
    if (!item) return;
    const auto set = item.TryAs<ISet>();
    if (set && set->Count() == 0) return;
    const auto list = New<IVariantArray>();
    Text text = u"Please click 'OK' to confirm that you wish to delete the following objects:\r\n" +
                Text(55, u'-') + u" \r\n";
    ForEachMember(item, [&](const Ref<IObject>& member) {
      Collect(member, static_cast<bool>(set), text, list);
      return true;
    });
    if (MsgBox(text, box::kOkCancel, u"Confirm Deletion:") != box::kAnswerOk) return;
    for (std::int32_t i = 0; i < list->Count(); ++i) {
      const auto& element = list->Element(i);
      if (element.Offers<IMap>()) {
        DeleteMap(element.As<IMap>());
      } else if (element.Offers<IStandaloneTable>()) {
        DeleteTable(element.As<IStandaloneTable>());
      } else {
        DeleteLayer(element.As<ILayer>());
      }
    }
    m_pMxDoc->UpdateContents();
    m_pMxDoc->ActiveView()->PartialRefresh(DrawPhase::GeographyAndSelection, nullptr, nullptr);
  });
}

}  // namespace brelmon
