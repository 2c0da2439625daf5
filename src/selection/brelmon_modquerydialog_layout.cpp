// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog's captions and places, in twips, from top to bottom.
#include "forms/pictures.h"
#include "selection/brelmon_modquerydialog.h"
#include "selection/layout.h"

namespace brelmon {
namespace {

constexpr Twips kMargin = 120, kWidth = 8640, kHeight = 8265;
constexpr Twips kInner = kWidth - 2 * kMargin;
constexpr Twips kLabelHeight = 225, kButtonHeight = 375;
constexpr Twips kColumn = (kInner - 2 * kMargin) / 3;

void PlaceIn(Control& frame, Control& control, const Text& caption, Twips left, Twips top,
             Twips width, Twips height) {
  control.SetContainer(frame);
  Place(control, caption, left, top, width, height);
}

}  // namespace

void brelmon_ModQueryDialog::Design() {
  Form::Design(u"Select By Attributes", kWidth, kHeight);
  DesignLists();
  DesignQuery();
  DesignSets();
  DesignCount();
  Place(cmdCancel, u"Cancel", kWidth - kMargin - 1215, 7770, 1215, kButtonHeight);
  cmdCancel.SetCancel(true);
}

void brelmon_ModQueryDialog::DesignLists() {
  constexpr Twips kTop = 120, kListTop = kTop + kLabelHeight + 15, kListHeight = 2070;
  constexpr Twips kFields = kMargin + kColumn + kMargin, kValues = kFields + kColumn + kMargin;
  Place(lblThemes, u"Layers", kMargin, kTop, kColumn, kLabelHeight);
  Place(lbxThemes, {}, kMargin, kListTop, kColumn, kListHeight);
  Place(lblFields, u"Fields", kFields, kTop, kColumn, kLabelHeight);
  Place(lbxFields, {}, kFields, kListTop, kColumn, kListHeight);
  Place(lblValues, u"Values", kValues, kTop, kColumn, kLabelHeight);
  Place(lbxValues, {}, kValues, kListTop, kColumn, kListHeight - kButtonHeight - 75);
  Place(cmdUpdate, u"Update Values", kValues, kListTop + kListHeight - kButtonHeight, kColumn,
        kButtonHeight);
  lbxThemes.SetLabel(lblThemes);
  lbxFields.SetLabel(lblFields);
  lbxValues.SetLabel(lblValues);
}

void brelmon_ModQueryDialog::DesignQuery() {
  constexpr Twips kHigh = 2655, kTextWidth = 5745, kTextTop = 480;
  Place(QueryContainer, {}, kMargin, 2520, kInner, kHigh);
  PlaceIn(QueryContainer, lblQueryStatement, u"Query Statement:", kMargin, 210, kTextWidth,
          kLabelHeight);
  PlaceIn(QueryContainer, txtQuery, {}, kMargin, kTextTop, kTextWidth, 1575);
  txtQuery.SetMultiLine(true);
  txtQuery.SetLabel(lblQueryStatement);

  struct Operator {
    CommandButton& button;
    const char* picture;
    const char16_t* spoken;
    int column, row;
  };
  const Operator operators[] = {
      {cmdEquals, "op-equals.bmp", u"Equals", 0, 0},
      {cmdNotEqual, "op-notequal.bmp", u"Not equal", 1, 0},
      {cmdAnd, "op-and.bmp", u"And", 2, 0},
      {cmdGreater, "op-greater.bmp", u"Greater than", 0, 1},
      {cmdGreaterEqual, "op-greaterequal.bmp", u"Greater than or equal", 1, 1},
      {cmdOr, "op-or.bmp", u"Or", 2, 1},
      {cmdLess, "op-less.bmp", u"Less than", 0, 2},
      {cmdLessEqual, "op-lessequal.bmp", u"Less than or equal", 1, 2},
      {cmdNot, "op-not.bmp", u"Not", 2, 2},
      {cmdParentheses, "op-parentheses.bmp", u"Parentheses", 0, 3},
  };
  constexpr Twips kFirst = kMargin + kTextWidth + kMargin, kWide = 720, kStep = 780;
  for (const auto& [button, picture, spoken, column, row] : operators) {
    PlaceIn(QueryContainer, button, {}, kFirst + static_cast<Twips>(column) * kStep,
            kTextTop + static_cast<Twips>(row) * 400, kWide, kButtonHeight);
    button.SetPicture(PictureOf(picture, spoken));
  }

  constexpr Twips kBottom = kTextTop + 1575 + 105;
  PlaceIn(QueryContainer, cmdVerify, u"Verify", kMargin, kBottom, 1095, kButtonHeight);
  cmdVerify.SetToolTipText(u"Confirm that Query Syntax is Correct");
  PlaceIn(QueryContainer, cmdClearQuery, u"Clear", kMargin + 1215, kBottom, 1095, kButtonHeight);
  cmdClearQuery.SetToolTipText(u"Reset Query Statement");
  PlaceIn(QueryContainer, cmdLoadQJQuery, u"QuickLoad Query", kMargin + kTextWidth - 1920, kBottom,
          1920, kButtonHeight);
}

void brelmon_ModQueryDialog::DesignSets() {
  constexpr Twips kTop = 5295, kFrameWidth = 2640, kFrameHeight = 1020;
  Place(cpFiltered, u"Selected Features: ", kMargin, kTop, kFrameWidth, kFrameHeight);
  PlaceIn(cpFiltered, optFiltered, u"Filter", 180, 285, 2280, 270);
  PlaceIn(cpFiltered, optSelected, u"Select", 180, 630, 2280, 270);

  // "Clear Selected" is the longest caption and stands below its four neighbours.
  constexpr Twips kFirst = kMargin + kFrameWidth + kMargin, kWide = 1275, kStep = kWide + 135;
  constexpr Twips kRow = kTop + 120;
  Place(cmdNewSet, u"New", kFirst, kRow, kWide, kButtonHeight);
  Place(cmdAddToSet, u"Add", kFirst + kStep, kRow, kWide, kButtonHeight);
  Place(cmdSelFromSet, u"Subset", kFirst + 2 * kStep, kRow, kWide, kButtonHeight);
  Place(cmdSubtractFromSet, u"Subtract", kFirst + 3 * kStep, kRow, kWide, kButtonHeight);
  Place(cmdClear, u"Clear Selected", kFirst, kRow + 480, kWide + kStep, kButtonHeight);

  Place(lbl_txtCurrentFilter, u"Current Filter Definition:", kMargin, 6420, kInner, kLabelHeight);
  Place(txtCurrentFilter, {}, kMargin, 6660, kInner, 315);
  txtCurrentFilter.SetLocked(true);
  txtCurrentFilter.SetLabel(lbl_txtCurrentFilter);
}

void brelmon_ModQueryDialog::DesignCount() {
  constexpr Twips kSide = 480, kStep = kSide + 90;
  Place(cpNumFound, {}, kMargin, 7035, kInner, 660);
  PlaceIn(cpNumFound, lblNumSelected, u"Number of features = [ - No Theme - ]", kMargin, 255, 6120,
          kLabelHeight);
  Twips left = kInner - kMargin - 3 * kStep + 90;
  const std::pair<CommandButton&, const SideTool&> tools[] = {
      {cmdSwitchSel, kSwitchTool}, {cmdOpenStats, kStatisticsTool}, {cmdOpenTable, kTableTool}};
  for (const auto& [button, tool] : tools) {
    button.SetContainer(cpNumFound);
    PlaceTool(button, tool, left, 150, kSide, 435);
    left += kStep;
  }
}

}  // namespace brelmon
