// SPDX-License-Identifier: GPL-2.0-or-later
// The Summarize dialog's captions and places, in twips, and the pictures of its tree.
#include "forms/pictures.h"
#include "selection/layout.h"
#include "summarize/frm_Brelmon_Summarize.h"

namespace brelmon {
namespace {

constexpr Twips kMargin = 120, kWidth = 7440, kHeight = 7950;
constexpr Twips kInner = kWidth - 2 * kMargin;
constexpr Twips kLabelHeight = 225, kBoxHeight = 315, kButtonHeight = 375;
constexpr Twips kGeneralTop = 720, kGeneralHeight = 6195;

}  // namespace

void frm_Brelmon_Summarize::Design() {
  Form::Design(u"Summarize", kWidth, kHeight, true);
  Place(lblSummarize,
        u"Summarize creates a new table containing one record for each unique value of the "
        u"selected field, along with statistics summarizing any of the other fields.",
        kMargin, kMargin, kInner, 2 * kLabelHeight);
  DesignGeneral();
  DesignButtons();

  static constexpr struct {
    const char* file;
    const char16_t* spoken;
  } kPictures[] = {{"tree-1.bmp", u"Clear"},      {"tree-2.bmp", u"Ticked"},
                   {"tree-3.bmp", u"Text field"}, {"tree-4.bmp", u"Numeric field"},
                   {"tree-5.bmp", u"Field"},      {"tree-6.bmp", u"Date field"}};
  imgImageList = ImageList();
  for (const auto& [file, spoken] : kPictures) imgImageList.Add(PictureOf(file, spoken));
}

void frm_Brelmon_Summarize::DesignGeneral() {
  Place(frmGeneral, {}, kMargin, kGeneralTop, kInner, kGeneralHeight);
  for (Control* control :
       std::initializer_list<Control*>{&lblLayer, &cbxLayer, &lbl1, &cbxFieldName, &lbl2,
                                       &treeFields, &lbl3, &txtOutput, &cmdGetFile}) {
    control->SetContainer(frmGeneral);
  }
  constexpr Twips kLeft = 180, kFieldLeft = 420, kLabelWidth = kInner - 2 * kLeft;
  constexpr Twips kFieldWidth = kInner - kFieldLeft - kLeft, kBrowse = 435;
  constexpr Twips kBreakWidth = 5850;  // the line breaks at the run of blanks
  Place(lblLayer, u"1.  Select a feature layer or table:", kLeft, 240, kLabelWidth, kLabelHeight);
  Place(cbxLayer, {}, kFieldLeft, 495, kFieldWidth, kBoxHeight);
  Place(lbl1, u"2.  Select a field to summarize:", kLeft, 960, kLabelWidth, kLabelHeight);
  Place(cbxFieldName, {}, kFieldLeft, 1215, kFieldWidth, kBoxHeight);
  Place(lbl2,
        u"3.  Choose one or more summary statistics to be included in the            output "
        u"table:",
        kLeft, 1680, kBreakWidth, 2 * kLabelHeight);
  Place(treeFields, {}, kFieldLeft, 2160, kFieldWidth, 3000);
  Place(lbl3, u"4.  Specify output table:", kLeft, 5310, kLabelWidth, kLabelHeight);
  Place(txtOutput, {}, kFieldLeft, 5625, kFieldWidth - kBrowse - 90, kBoxHeight);
  Place(cmdGetFile, {}, kFieldLeft + kFieldWidth - kBrowse, 5595, kBrowse, kButtonHeight);
  cbxLayer.SetListOnly(true);
  cbxLayer.SetLabel(lblLayer);
  cbxFieldName.SetListOnly(true);
  cbxFieldName.SetLabel(lbl1);
  treeFields.SetLabel(lbl2);
  txtOutput.SetLabel(lbl3);
  cmdGetFile.SetPicture(PictureOf("tool-browse.bmp", u"Browse"));
  cmdGetFile.SetToolTipText(u"Browse for Output Filename...");
}

void frm_Brelmon_Summarize::DesignButtons() {
  constexpr Twips kCheckTop = kGeneralTop + kGeneralHeight + 120, kRow = 7425, kTool = 435;
  Place(chkSumSelected, u"Summarize on Selected Records Only", kMargin, kCheckTop, kInner, 255);
  Twips left = kMargin;
  const std::pair<CommandButton&, const SideTool&> tools[] = {
      {cmdOpenTable, kTableTool}, {cmdOpenStats, kStatisticsTool}, {cmdSwitchSel, kSwitchTool}};
  for (const auto& [button, tool] : tools) {
    PlaceTool(button, tool, left, kRow, kTool, kButtonHeight);
    left += kTool + 75;
  }
  Place(cmdHelp, u"About Summarizing Data", left + 75, kRow, 2490, kButtonHeight);
  Place(cmdOK, u"OK", 4560, kRow, 1140, kButtonHeight);
  Place(cmdCancel, u"Cancel", 5820, kRow, 1140, kButtonHeight);
  cmdOK.SetDefault(true);
  cmdCancel.SetCancel(true);
  imgCornerBars.SetPicture(CornerBars());
  imgCornerBars.Move(kWidth - 225, kHeight - 225, 225, 225);
}

}  // namespace brelmon
