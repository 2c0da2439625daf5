// SPDX-License-Identifier: GPL-2.0-or-later
// What the Summarize dialog is given: the valid feature layers and tables of the focus map.
#include "summarize/cmdSumBrelmon.h"

#include "frame/documentmodel.h"
#include "platform/number.h"
#include "summarize/frm_Brelmon_Summarize.h"

namespace brelmon {
namespace {

/// Keys are the positions as decimal text, without a gap.
Collection<Ref<IObject>> ItemsOf(const Ref<IMxDocument>& document) {
  Collection<Ref<IObject>> items;
  const auto add = [&](const Ref<IObject>& item) { items.Add(item, GeneralText(items.Count())); };
  WalkFeatureLayers(document->FocusMap(), [&](const Ref<ILayer>& layer) {
    if (layer->Valid()) add(layer);
    return true;
  });
  WalkTables(document->FocusMap(), [&](const Ref<IStandaloneTable>& table) {
    if (table->Valid()) add(table);
    return true;
  });
  return items;
}

}  // namespace

cmdSumBrelmon::cmdSumBrelmon() : BrelmonCommand(u"cmdSumBrelmon") {}

cmdSumBrelmon::~cmdSumBrelmon() {
  Terminate([] {});
}

void cmdSumBrelmon::OnClick() {
  Guard::Top(u"ICommand_OnClick", [&] {
    auto selected = m_pMxDoc->SelectedItem();
    const auto map = m_pMxDoc->FocusMap();
    const auto tables = map.As<IStandaloneTableCollection>();
    if (map->LayerCount() == 0 && tables->StandaloneTableCount() == 0) return;
    const auto items = ItemsOf(m_pMxDoc);
    if (!selected.Offers<IFeatureLayer>() && !selected.Offers<IStandaloneTable>()) {
      selected.Reset();
    }
    const auto form = New<frm_Brelmon_Summarize>();
    form->theTableLayers = items;
    if (IsValidItem(selected)) form->Field_Array = selected.As<ITableFields>();
    form->theCurrentSelected = selected;
    form->ArcApp = m_pApp;
    form->ShowModal();
    form->Unload();
  });
}

}  // namespace brelmon
