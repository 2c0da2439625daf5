// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog "Summarize": what a summary table is to hold, and the making of it.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "forms/AnchorObjectList.h"
#include "platform/collection.h"
#include "platform/map.h"
#include "platform/workspace.h"
#include "statistics/StatisticsFlow.h"
#include "summarize/frmSumHelp.h"
#include "summarize/summarystring.h"

namespace brelmon {

class frm_Brelmon_Summarize : public Form {
 public:
  frm_Brelmon_Summarize();

  // Given before the form is shown.
  Collection<Ref<IObject>> theTableLayers;  // feature layers and tables under "0", "1"...
  Ref<ITableFields> Field_Array;            // of the item in cbxLayer
  Ref<IObject> theCurrentSelected;
  Ref<IApplication> ArcApp;
  /// The item chosen in cbxLayer.
  Ref<IObject> SelectedLayer;

  Label lblSummarize{*this, u"lblSummarize"};
  Frame frmGeneral{*this, u"frmGeneral"};
  Label lblLayer{*this, u"lblLayer"};
  ComboBox cbxLayer{*this, u"cbxLayer"};
  Label lbl1{*this, u"lbl1"};
  ComboBox cbxFieldName{*this, u"cbxFieldName"};
  Label lbl2{*this, u"lbl2"};
  TreeView treeFields{*this, u"treeFields"};
  Label lbl3{*this, u"lbl3"};
  TextBox txtOutput{*this, u"txtOutput"};
  CommandButton cmdGetFile{*this, u"cmdGetFile"};
  CheckBox chkSumSelected{*this, u"chkSumSelected"};
  CommandButton cmdOpenTable{*this, u"cmdOpenTable"};
  CommandButton cmdOpenStats{*this, u"cmdOpenStats"};
  CommandButton cmdSwitchSel{*this, u"cmdSwitchSel"};
  CommandButton cmdHelp{*this, u"cmdHelp"};
  CommandButton cmdOK{*this, u"cmdOK"};
  CommandButton cmdCancel{*this, u"cmdCancel"};
  PictureBox imgCornerBars{*this, u"imgCornerBars"};
  ImageList imgImageList;  // 1 clear, 2 ticked, 3 text, 4 number, 6 date

 protected:
  void Design() override;
  void Form_Load() override;
  void Form_Unload() override;
  void Form_Click() override;
  void Form_MouseDown() override;

 private:
  void Wire();
  void DesignGeneral();
  void DesignButtons();

  void AnchorControls();
  void ListLayers();
  void ProposeOutput();
  /// The output box's text as a path of the tools.
  Text TypedOutput();

  void cbxLayer_Click();
  void cbxFieldName_Click();
  void Fill_TreeView();
  void AddFieldNode(std::int32_t position, FieldType type, const Text& alias);
  void treeFields_NodeClick(Node& node);
  void txtOutput_Change();
  void CheckEnable();
  void DisplayNumSelected();

  void cmdGetFile_Click();
  void cmdHelp_Click();
  void cmdSwitchSel_Click();
  void cmdOpenTable_Click();
  void cmdOpenStats_Click();
  void cmdOK_Click();
  void cmdCancel_Click();

  /// Position in Field_Array of the field to summarize by.
  std::int32_t ChosenField();
  std::vector<SummaryTerm> TickedTerms();
  /// The table to be made, or unset after a message that says why it can't be.
  Ref<IDatasetName> OutputName(const Text& path);

  std::vector<std::int32_t> fieldIndices;  // positions in Field_Array, one a row of cbxFieldName
  Ref<frmSumHelp> m_pHelp;
  StatisticsDefaults statDefaults;
  Ref<frmReport_modal> reportWindow;
  std::unique_ptr<AnchorObjectList> anchors_;
};

}  // namespace brelmon
