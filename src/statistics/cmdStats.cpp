// SPDX-License-Identifier: GPL-2.0-or-later
// Statistics on what the focus map holds, into the window beside the host.
#include "statistics/cmdStats.h"

#include "frame/documentmodel.h"
#include "platform/number.h"

namespace brelmon {
namespace {

/// Under the keys "0", "1"...
Collection<Ref<IObject>> ItemsOf(const Ref<IMap>& map) {
  Collection<Ref<IObject>> items;
  ForEachValidItem(map,
                   [&](const Ref<IObject>& item) { items.Add(item, GeneralText(items.Count())); });
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
