// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog's life: wiring, loading, closing, and its handlers of a line or two.
#include "selection/brelmon_modquerydialog.h"

#include "frame/guard.h"

namespace brelmon {

brelmon_ModQueryDialog::brelmon_ModQueryDialog() : Form(u"brelmon_ModQueryDialog") {
  WireLists();
  WireComposition();
  WireEngine();
  WireSideTools();
}

void brelmon_ModQueryDialog::WireLists() {
  lbxThemes.Click = [this] { lbxThemes_Click(); };
  lbxFields.Click = [this] { lbxFields_Click(); };
  lbxFields.DblClick = [this] { lbxFields_DblClick(); };
  lbxValues.DblClick = [this] { lbxValues_DblClick(); };
  cmdUpdate.Click = [this] { cmdUpdate_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void brelmon_ModQueryDialog::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    lbxThemes.Clear();
    lbxFields.Clear();
    lbxValues.Clear();
    txtQuery.SetText(u"(  )");
    txtQuery.SetSelStart(2);
    txtCurrentFilter.SetText({});
    statDefaults = {};
    if (!reportWindow) reportWindow = New<frmReport_modal>();
    EnableQueryControls(false);
    cmdUpdate.SetEnabled(false);
    cmdSelFromSet.SetEnabled(false);
    cmdSubtractFromSet.SetEnabled(false);
    if (!optSelected.Value() && !optFiltered.Value()) optSelected.SetValue(true);
    cmdClear.SetCaption(optSelected.Value() ? u"Clear Selected" : u"Clear Filter");
  });
}

void brelmon_ModQueryDialog::Form_Unload() {
  Guard::Top(u"Form_Unload", [&] {
    ArcApplication.Reset();
    theLayerArray.Reset();
    theStringLayerNames.clear();
    fieldTokens.clear();
    reportWindow.Reset();
  });
}

// The count catches up with selections that were made in other windows.
void brelmon_ModQueryDialog::Form_Activate() {
  Guard::Top(u"Form_Activate", [&] { DisplayNumSelected(); });
}

void brelmon_ModQueryDialog::Form_Click() {
  Guard::Top(u"Form_Click", [&] { DisplayNumSelected(); });
}

void brelmon_ModQueryDialog::Form_MouseDown() {
  Guard::Top(u"Form_MouseDown", [&] { DisplayNumSelected(); });
}

void brelmon_ModQueryDialog::cmdCancel_Click() {
  Guard::Top(u"cmdCancel_Click", [&] { Hide(); });
}

const Ref<IObject>& brelmon_ModQueryDialog::ChosenItem() {
  return theLayerArray->Element(lbxThemes.ListIndex());
}

void brelmon_ModQueryDialog::EnableQueryControls(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{
           &cmdAddToSet, &cmdNewSet, &cmdClear, &lbxValues, &lbxFields, &txtQuery, &cmdAnd,
           &cmdEquals, &cmdGreater, &cmdGreaterEqual, &cmdLess, &cmdLessEqual, &cmdNot,
           &cmdNotEqual, &cmdOr, &cmdParentheses}) {
    control->SetEnabled(enabled);
  }
}

}  // namespace brelmon
