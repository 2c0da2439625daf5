// SPDX-License-Identifier: GPL-2.0-or-later
// Options, list and layout of the QuickLoad dialog.
#include "quickload/brelmon_quickjumpdialog.h"

#include "forms/pictures.h"
#include "frame/guard.h"

namespace brelmon {

brelmon_QuickJumpDialog::brelmon_QuickJumpDialog() : Form(u"brelmon_QuickJumpDialog") {
  optViews.Click = [this] { optViews_Click(); };
  optExtents.Click = [this] { optExtents_Click(); };
  optLayers.Click = [this] { optLayers_Click(); };
  optQueries.Click = [this] { optQueries_Click(); };
  lbxList.Click = [this] { lbxList_Click(); };
  lbxList.DblClick = [this] { lbxList_DblClick(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void brelmon_QuickJumpDialog::Design() {
  Form::Design(u"QuickLoad", 4620, 4815, true);
  cpSavedTypes.SetCaption(u" QuickLoad Options ");
  cpSavedTypes.Move(120, 120, 4380, 1095);
  const struct {
    OptionButton& option;
    const char16_t* caption;
    Twips left, top;
  } options[] = {{optViews, u"Data Frames", 180, 300},
                 {optExtents, u"Spatial Bookmarks", 180, 660},
                 {optLayers, u"Layers", 2400, 300},
                 {optQueries, u"Queries", 2400, 660}};
  for (const auto& each : options) {
    each.option.SetContainer(cpSavedTypes);
    each.option.SetCaption(each.caption);
    each.option.Move(each.left, each.top, 1860, 255);
  }
  lbxList.SetToolTipText(u"Shortcuts of the chosen kind");
  lbxList.Move(120, 1335, 4380, 2865);
  cmdOK.SetCaption(u"OK");
  cmdOK.SetDefault(true);
  cmdOK.SetEnabled(false);
  cmdOK.Move(120, 4320, 1215, 375);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(1455, 4320, 1215, 375);
  imgCornerBars.SetPicture(CornerBars());
  imgCornerBars.Move(4395, 4590, 225, 225);
}

void brelmon_QuickJumpDialog::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    m_pAnchors = std::make_unique<AnchorObjectList>();
    m_pAnchors->Item(cpSavedTypes)->SetAnchors(AnchorStretch, AnchorFixed);
    m_pAnchors->Item(lbxList)->SetAnchors(AnchorStretch, AnchorStretch);
    m_pAnchors->Item(cmdOK)->SetAnchors(AnchorFixed, AnchorFarEdge);
    m_pAnchors->Item(cmdCancel)->SetAnchors(AnchorFixed, AnchorFarEdge);
    m_pAnchors->Item(imgCornerBars)->SetAnchors(AnchorFarEdge, AnchorFarEdge);
    m_pAnchors->SetForm(*this);
    m_ShouldContinue = false;
    const bool chosen =
        optViews.Value() || optExtents.Value() || optLayers.Value() || optQueries.Value();
    if (!chosen) optViews.SetValue(true);
  });
}

void brelmon_QuickJumpDialog::Fill(const std::vector<Text>& names) {
  lbxList.Clear();
  for (const Text& name : names) lbxList.AddItem(name);
  cmdOK.SetEnabled(false);
}

void brelmon_QuickJumpDialog::optViews_Click() {
  Guard::Top(u"optViews_Click", [&] { Fill(m_MapFrames); });
}

void brelmon_QuickJumpDialog::optExtents_Click() {
  Guard::Top(u"optExtents_Click", [&] { Fill(m_Bookmarks); });
}

void brelmon_QuickJumpDialog::optLayers_Click() {
  Guard::Top(u"optLayers_Click", [&] { Fill(m_Layers); });
}

void brelmon_QuickJumpDialog::optQueries_Click() {
  Guard::Top(u"optQueries_Click", [&] { Fill(m_Queries); });
}

void brelmon_QuickJumpDialog::lbxList_Click() {
  Guard::Top(u"lbxList_Click", [&] { cmdOK.SetEnabled(true); });
}

// No look at the selection: a double click below the rows closes with the index -1.
void brelmon_QuickJumpDialog::lbxList_DblClick() {
  Guard::Top(u"lbxList_DblClick", [&] { cmdOK_Click(); });
}

void brelmon_QuickJumpDialog::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] {
    m_ShouldContinue = true;
    Hide();
  });
}

void brelmon_QuickJumpDialog::cmdCancel_Click() {
  Guard::Top(u"cmdCancel_Click", [&] {
    m_ShouldContinue = false;
    Hide();
  });
}

}  // namespace brelmon
