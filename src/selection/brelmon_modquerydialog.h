// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog "Select By Attributes": lists to click from, a query text, set buttons.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/application.h"
#include "platform/collection.h"
#include "platform/map.h"
#include "selection/queryoperation.h"
#include "statistics/StatisticsFlow.h"
#include "toolkit/controls.h"

namespace brelmon {

class brelmon_ModQueryDialog : public Form {
 public:
  brelmon_ModQueryDialog();

  // Given before the form is shown.
  Ref<IApplication> ArcApplication;
  Ref<IVariantArray> theLayerArray;      // feature layers and standalone tables, as in lbxThemes
  std::int16_t theCurrentSelected = -1;  // kept for the caller; the form never reads it
  std::vector<Text> theStringLayerNames;

  // In reading order, which is the tab order.
  Label lblThemes{*this, u"lblThemes"};
  ListBox lbxThemes{*this, u"lbxThemes"};
  Label lblFields{*this, u"lblFields"};
  ListBox lbxFields{*this, u"lbxFields"};
  Label lblValues{*this, u"lblValues"};
  ListBox lbxValues{*this, u"lbxValues"};
  CommandButton cmdUpdate{*this, u"cmdUpdate"};
  Frame QueryContainer{*this, u"QueryContainer"};
  Label lblQueryStatement{*this, u"lblQueryStatement"};
  TextBox txtQuery{*this, u"txtQuery"};
  CommandButton cmdEquals{*this, u"cmdEquals"};
  CommandButton cmdNotEqual{*this, u"cmdNotEqual"};
  CommandButton cmdAnd{*this, u"cmdAnd"};
  CommandButton cmdGreater{*this, u"cmdGreater"};
  CommandButton cmdGreaterEqual{*this, u"cmdGreaterEqual"};
  CommandButton cmdOr{*this, u"cmdOr"};
  CommandButton cmdLess{*this, u"cmdLess"};
  CommandButton cmdLessEqual{*this, u"cmdLessEqual"};
  CommandButton cmdNot{*this, u"cmdNot"};
  CommandButton cmdParentheses{*this, u"cmdParentheses"};
  CommandButton cmdVerify{*this, u"cmdVerify"};
  CommandButton cmdClearQuery{*this, u"cmdClearQuery"};
  CommandButton cmdLoadQJQuery{*this, u"cmdLoadQJQuery"};
  Frame cpFiltered{*this, u"cpFiltered"};
  OptionButton optFiltered{*this, u"optFiltered"};
  OptionButton optSelected{*this, u"optSelected"};
  CommandButton cmdNewSet{*this, u"cmdNewSet"};
  CommandButton cmdAddToSet{*this, u"cmdAddToSet"};
  CommandButton cmdSelFromSet{*this, u"cmdSelFromSet"};
  CommandButton cmdSubtractFromSet{*this, u"cmdSubtractFromSet"};
  CommandButton cmdClear{*this, u"cmdClear"};
  Label lbl_txtCurrentFilter{*this, u"lbl_txtCurrentFilter"};
  TextBox txtCurrentFilter{*this, u"txtCurrentFilter"};
  Frame cpNumFound{*this, u"cpNumFound"};
  Label lblNumSelected{*this, u"lblNumSelected"};
  CommandButton cmdSwitchSel{*this, u"cmdSwitchSel"};
  CommandButton cmdOpenStats{*this, u"cmdOpenStats"};
  CommandButton cmdOpenTable{*this, u"cmdOpenTable"};
  CommandButton cmdCancel{*this, u"cmdCancel"};

  /// Enables the buttons that need a chosen layer, and brings the count up to date.
  void EnableStatTableButtons();

 protected:
  void Design() override;
  void Form_Load() override;
  void Form_Unload() override;
  void Form_Activate() override;
  void Form_Click() override;
  void Form_MouseDown() override;

 private:
  void WireLists();
  void WireComposition();
  void WireEngine();
  void WireSideTools();
  void DesignLists();
  void DesignQuery();
  void DesignSets();
  void DesignCount();

  void lbxThemes_Click();
  void lbxFields_Click();
  void lbxFields_DblClick();
  void lbxValues_DblClick();
  void cmdUpdate_Click();
  void cmdCancel_Click();
  void DisplayNumSelected();

  void cmdNot_Click();
  void cmdParentheses_Click();
  void cmdClearQuery_Click();
  /// An operator button's click: the literal in place of what is selected.
  void Insert(TextView procedure, TextView literal);

  void ModQueryDoSelection(SetOperation operation);
  void optFiltered_Click();
  void cmdVerify_Click();
  void cmdSwitchSel_Click();

  void cmdOpenTable_Click();
  void cmdOpenStats_Click();
  void cmdLoadQJQuery_Click();

  /// The layer or table chosen in lbxThemes; fails with 9 where no row is.
  const Ref<IObject>& ChosenItem();
  void EnableQueryControls(bool enabled);
  void EnableNarrowing(const Text& definition, std::int32_t selectedCount);
  void ListFields(const Ref<IObject>& item, const Text& openMark, const Text& closeMark);
  void ShowDefinition(const Text& definition);

  std::vector<Text> fieldTokens;  // enclosed actual names, one a row of lbxFields
  StatisticsDefaults statDefaults;
  Ref<frmReport_modal> reportWindow;
};

}  // namespace brelmon
