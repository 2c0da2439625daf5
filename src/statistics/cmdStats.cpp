// SPDX-License-Identifier: GPL-2.0-or-later
// Statistics on what the focus map holds, into the window beside the host.
#include "statistics/cmdStats.h"

#include "frame/documentmodel.h"
#include "platform/number.h"

namespace brelmon {
namespace {

/// Feature layers at any depth, then tables; only what can be reached.
Collection<Ref<IObject>> ItemsOf(const Ref<IMap>& map) {
  Collection<Ref<IObject>> items;
  const auto offer = [&items](const Ref<IObject>& item) {
    items.Add(item, GeneralText(items.Count()));
  };
  if (map->LayerCount() > 0) {
    WalkLayers(map->Layers(nullptr, true), [&](const Ref<ILayer>& layer) {
      if (layer.Offers<IFeatureLayer>() && layer->Valid()) offer(layer);
      return true;
    });
  }
  WalkTables(map, [&](const Ref<IStandaloneTable>& table) {
    if (table->Valid()) offer(table);
    return true;
  });
  return items;
}

}  // namespace

cmdStats::cmdStats() : BrelmonCommand(u"cmdStats") {}

cmdStats::~cmdStats() {
  Terminate([&] {
    statDefaults_.ExcludeText.clear();
    if (!report_) return;
    report_->Unload();
    report_.Reset();
  });
}

void cmdStats::Created() {
  statDefaults_ = {};
  report_ = New<frmReport>();
}

void cmdStats::OnClick() {
  Guard::Top(u"ICommand_OnClick", [&] {
    StatisticsOffer offer;
    offer.Selected = m_pMxDoc->SelectedItem();
    if (!offer.Selected.Offers<IStandaloneTable>() && !offer.Selected.Offers<IFeatureLayer>()) {
      offer.Selected.Reset();
    }
    offer.Items = ItemsOf(m_pMxDoc->FocusMap());
    StatisticsVariant variant;
    variant.ShowReport = [this](const Text& text) {
      report_->txtReport.SetText(text);
      report_->Frame()->SetCaption(u"Statistics Report:");
      report_->Frame()->SetVisible(true);
    };
    RunStatistics(m_pApp, offer, statDefaults_, variant);
  });
}

}  // namespace brelmon
