// SPDX-License-Identifier: GPL-2.0-or-later
// The Summarize dialog's life: wiring, loading, anchors, closing.
#include "summarize/frm_Brelmon_Summarize.h"

#include "frame/guard.h"
#include "platform/number.h"

namespace brelmon {

frm_Brelmon_Summarize::frm_Brelmon_Summarize() : Form(u"frm_Brelmon_Summarize") { Wire(); }

void frm_Brelmon_Summarize::Wire() {
  cbxLayer.Click = [this] { cbxLayer_Click(); };
  cbxFieldName.Click = [this] { cbxFieldName_Click(); };
  treeFields.NodeClick = [this](Node& node) { treeFields_NodeClick(node); };
  txtOutput.Change = [this] { txtOutput_Change(); };
  cmdGetFile.Click = [this] { cmdGetFile_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  cmdSwitchSel.Click = [this] { cmdSwitchSel_Click(); };
  cmdOpenTable.Click = [this] { cmdOpenTable_Click(); };
  cmdOpenStats.Click = [this] { cmdOpenStats_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frm_Brelmon_Summarize::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    AnchorControls();
    statDefaults = {};
    if (!reportWindow) reportWindow = New<frmReport_modal>();
    m_pHelp = New<frmSumHelp>();
    treeFields.SetImageList(&imgImageList);
    ListLayers();
    ProposeOutput();
    Fill_TreeView();
    DisplayNumSelected();
    CheckEnable();
  });
}

void frm_Brelmon_Summarize::AnchorControls() {
  anchors_ = std::make_unique<AnchorObjectList>();
  const struct {
    Control& control;
    AnchorKind x, y;
  } kinds[] = {
      {frmGeneral, AnchorStretch, AnchorStretch},
      {treeFields, AnchorStretch, AnchorStretch},
      {lbl3, AnchorFixed, AnchorFarEdge},
      {txtOutput, AnchorStretch, AnchorFarEdge},
      {cbxLayer, AnchorStretch, AnchorFixed},
      {cbxFieldName, AnchorStretch, AnchorFixed},
      {cmdGetFile, AnchorFarEdge, AnchorFarEdge},
      {chkSumSelected, AnchorFixed, AnchorFarEdge},
      {cmdOpenTable, AnchorFixed, AnchorFarEdge},
      {cmdOpenStats, AnchorFixed, AnchorFarEdge},
      {cmdSwitchSel, AnchorFixed, AnchorFarEdge},
      {cmdHelp, AnchorFixed, AnchorFarEdge},
      {cmdOK, AnchorFixed, AnchorFarEdge},
      {cmdCancel, AnchorFixed, AnchorFarEdge},
      {imgCornerBars, AnchorFarEdge, AnchorFarEdge},
  };
  for (const auto& each : kinds) anchors_->Item(each.control)->SetAnchors(each.x, each.y);
  anchors_->SetForm(*this);
}

void frm_Brelmon_Summarize::ListLayers() {
  cbxFieldName.Clear();
  cbxLayer.Clear();
  std::int32_t chosen = -1;
  std::vector<Text> names;
  for (std::int32_t i = 0; i < theTableLayers.Count(); ++i) {
    const auto item = theTableLayers.Item(GeneralText(i));
    if (Same(item, theCurrentSelected)) chosen = i;
    names.push_back(item.Offers<IFeatureLayer>() ? item.As<ILayer>()->Name()
                                                 : item.As<IStandaloneTable>()->Name());
  }
  for (const Text& name : names) cbxLayer.AddItem(name);
  cbxLayer.SetListIndex(theCurrentSelected ? chosen : 0);
}

void frm_Brelmon_Summarize::Form_Unload() {
  Guard::Top(u"Form_Unload", [&] {
    SelectedLayer.Reset();
    Field_Array.Reset();
    m_pHelp.Reset();  // one that is being read stays open, in its frame
    ArcApp.Reset();
    reportWindow.Reset();
  });
}

void frm_Brelmon_Summarize::Form_Click() {
  Guard::Top(u"Form_Click", [&] { DisplayNumSelected(); });
}

void frm_Brelmon_Summarize::Form_MouseDown() {
  Guard::Top(u"Form_MouseDown", [&] { DisplayNumSelected(); });
}

void frm_Brelmon_Summarize::cmdCancel_Click() {
  Guard::Top(u"cmdCancel_Click", [&] { Hide(); });
}

}  // namespace brelmon
