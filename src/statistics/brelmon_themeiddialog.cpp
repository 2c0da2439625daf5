// SPDX-License-Identifier: GPL-2.0-or-later
// The statistics dialog: what it offers, what it makes of a click, its answer.
#include "statistics/brelmon_themeiddialog.h"

#include "frame/documentmodel.h"
#include "frame/guard.h"
#include "platform/map.h"
#include "platform/number.h"
#include "platform/services.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr std::size_t kFieldRows = 1001;
constexpr std::int32_t kMostDecimals = 6, kUsualDecimals = 2;

Ref<IFieldsView> FieldsOf(const Ref<IObject>& item) {
  if (item.Offers<IFeatureLayer>()) return item.As<ILayerFields>();
  if (item.Offers<IStandaloneTable>()) return item.As<ITableFields>();
  return {};
}

Ref<ITable> TableOf(const Ref<IObject>& item) {
  if (item.Offers<IStandaloneTable>()) return item.As<IStandaloneTable>()->Table();
  return item.As<ITable>();
}

}  // namespace

brelmon_ThemeIDDialog::brelmon_ThemeIDDialog() : Form(u"brelmon_ThemeIDDialog") {
  lbxTheme.Click = [this] { lbxTheme_Click(); };
  lbxField.Click = [this] { lbxField_Click(); };
  chkNoData.Click = [this] { chkNoData_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void brelmon_ThemeIDDialog::Design() {
  Form::Design(u"Calculate Statistics:", 6300, 6435);
  DesignLists();
  DesignFrames();
  cmdOK.SetCaption(u"OK");
  cmdOK.Move(3720, 5940, 1170, 375);
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.Move(5010, 5940, 1170, 375);
  cmdCancel.SetCancel(true);
}

void brelmon_ThemeIDDialog::DesignLists() {
  lblTheme.SetCaption(u"Layers:");
  lblTheme.Move(120, 120, 2970, 225);
  lbxTheme.Move(120, 375, 2970, 2400);
  lbxTheme.SetLabel(lblTheme);
  lblField.SetCaption(u"Numeric Fields:");
  lblField.Move(3210, 120, 2970, 225);
  lbxField.Move(3210, 375, 2970, 2400);
  lbxField.SetMultiSelect(ListBox::Select::Extended);
  lbxField.SetLabel(lblField);
}

void brelmon_ThemeIDDialog::DesignFrames() {
  cpAllOrSel.SetCaption(u" Calculate Statistics For ");
  cpAllOrSel.Move(120, 2895, 6060, 1065);
  optSelected.SetContainer(cpAllOrSel);
  optSelected.SetCaption(u"Only selected features");
  optSelected.Move(180, 300, 2460, 255);
  lblSelCount.SetContainer(cpAllOrSel);
  lblSelCount.SetCaption(u"(XXX of XXX selected...)");
  lblSelCount.Move(2700, 315, 3240, 225);
  optAll.SetContainer(cpAllOrSel);
  optAll.SetCaption(u"All features");
  optAll.Move(180, 645, 2460, 255);

  cpIgnoreValues.SetCaption(u"Ignore Values");
  cpIgnoreValues.Move(120, 4080, 6060, 1020);
  chkNoData.SetContainer(cpIgnoreValues);
  chkNoData.SetCaption(u"Ignore");
  chkNoData.Move(180, 300, 1020, 255);
  txtNoData.SetContainer(cpIgnoreValues);
  txtNoData.Move(1260, 270, 4620, 315);
  txtNoData.SetLabel(cpIgnoreValues);
  lblInstructions.SetContainer(cpIgnoreValues);
  lblInstructions.SetCaption(u"(Separate multiple values by commas)");
  lblInstructions.Move(1260, 660, 4620, 225);

  cpDecPlaces.Move(120, 5220, 6060, 600);
  lbl_cbxDecPlaces.SetContainer(cpDecPlaces);
  lbl_cbxDecPlaces.SetCaption(u"Number of Decimal Places =");
  lbl_cbxDecPlaces.Move(180, 210, 2760, 225);
  cbxDecPlaces.SetContainer(cpDecPlaces);
  cbxDecPlaces.Move(3000, 165, 900, 315);
  cbxDecPlaces.SetLabel(lbl_cbxDecPlaces);
}

void brelmon_ThemeIDDialog::ClearAnswer() {
  chosen_.Reset();
  StatisticsFieldIndices = {};
  IgnoreValuesArray.assign(1, 0);
  NumberDecimalPlaces = 0;
  ShouldContinue = false;
}

void brelmon_ThemeIDDialog::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    ClearAnswer();
    lblSelCount.SetCaption(u"0 of 0 selected...");
    ListItems();
    txtNoData.SetText(u"-9999");
    for (std::int32_t places = 0; places <= kMostDecimals; ++places) {
      cbxDecPlaces.AddItem(GeneralText(places));
    }
    cbxDecPlaces.SetListIndex(kUsualDecimals);
    cmdOK.SetEnabled(false);
    EnableNoData();
  });
}

void brelmon_ThemeIDDialog::ListItems() {
  std::int32_t preselected = -1;
  std::vector<Text> names;
  for (std::int32_t i = 0; i < theTableLayers.Count(); ++i) {
    const auto item = theTableLayers.Item(GeneralText(i));
    if (Same(item, theCurrentSelected)) preselected = i;
    names.push_back(ItemName(item));
  }
  for (const Text& name : names) lbxTheme.AddItem(name);
  if (!optSelected.Value() && !optAll.Value()) optAll.SetValue(true);
  lbxField.Clear();
  lbxTheme.SetListIndex(preselected);
}

void brelmon_ThemeIDDialog::EnableNoData() {
  const bool ignores = chkNoData.Value() == 1;
  txtNoData.SetEnabled(ignores);
  lblInstructions.SetEnabled(ignores);
}

void brelmon_ThemeIDDialog::chkNoData_Click() {
  Guard::Top(u"chkNoData_Click", [&] { EnableNoData(); });
}

void brelmon_ThemeIDDialog::lbxTheme_Click() {
  Guard::Top(u"lbxTheme_Click", [&] {
    fieldMap_.assign(kFieldRows, {});
    lbxField.Clear();
    const auto item = theTableLayers.Item(GeneralText(lbxTheme.ListIndex()));
    ListNumericFields(item);
    cmdOK.SetEnabled(false);
    ShowSelection(item);
    chosen_ = item;
  });
}

void brelmon_ThemeIDDialog::ListNumericFields(const Ref<IObject>& item) {
  const auto fields = FieldsOf(item);
  const std::int32_t count = fields->FieldCount();
  std::int32_t last = -1;
  for (std::int32_t i = 0; i < count; ++i) {
    const auto info = fields->FieldInfo(i);
    if (!FieldIsNumeric(fields->Field(i)) || !info->Visible()) continue;
    lbxField.AddItem(info->Alias(), i);
    At(fieldMap_, ++last) = {info->Alias(), i};
  }
  if (last > 0) fieldMap_.resize(static_cast<std::size_t>(last) + 1);
}

void brelmon_ThemeIDDialog::ShowSelection(const Ref<IObject>& item) {
  const auto table = TableOf(item);
  const std::int32_t selected = item.As<ITableSelection>()->SelectionSet()->Count();
  const std::int32_t total = table->RowCount(nullptr);
  lblSelCount.SetCaption(u"(" + InsertCommas(selected) + u" of " + InsertCommas(total) +
                         u" records selected...)");
  const bool some = selected > 0;
  lblSelCount.SetEnabled(some);
  optSelected.SetEnabled(some);
  (some ? optSelected : optAll).SetValue(true);
}

void brelmon_ThemeIDDialog::lbxField_Click() {
  Guard::Top(u"lbxField_Click", [&] {
    cmdOK.SetEnabled(true);
    // The field is only asked for: one that is gone is told of here, not in the run.
    const FieldRow& row = At(fieldMap_, lbxField.ListIndex());
    if (chosen_.Offers<IFeatureLayer>()) {
      chosen_.As<IClass>()->Fields()->Field(row.Index);
    } else {
      chosen_.As<ITableFields>()->Field(row.Index);
    }
  });
}

bool brelmon_ThemeIDDialog::ReadIgnoreValues() {
  const Text typed = txtNoData.Text();
  std::vector<Text> pieces{typed};
  if (typed.find(u',') != Text::npos) ParseString(typed, pieces, u',');
  At(pieces, 0);  // nothing but commas and blanks leaves no piece
  std::vector<double> numbers;
  Text bad;
  for (const Text& piece : pieces) {
    if (const auto number = ParseNumber(piece)) {
      numbers.push_back(*number);
    } else {
      bad += u" --> " + piece + Text(kCrLf);
    }
  }
  txtNoData.SetBackColor(bad.empty() ? colour::kWhite : colour::kYellow);
  if (bad.empty()) {
    IgnoreValuesArray = std::move(numbers);
    return true;
  }
  txtNoData.SetFocus();
  MsgBox(u"These values are not numbers!  Please re-enter the values you would like to ignore..." +
             Text(kCrLf) + Text(kCrLf) + bad,
         box::kExclamation, u"Problems with Ignore Values:");
  return false;
}

void brelmon_ThemeIDDialog::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] {
    IgnoreValues = chkNoData.Value() == 1;
    if (!IgnoreValues) {
      IgnoreValuesArray.assign(1, 0);
    } else if (!ReadIgnoreValues()) {
      return;
    }
    DoAllRecords = optAll.Value();
    StatisticsFieldIndices = {};
    for (std::int32_t row = 0; row < lbxField.ListCount(); ++row) {
      if (lbxField.Selected(row)) StatisticsFieldIndices.Add(At(fieldMap_, row).Index);
    }
    NumberDecimalPlaces = ToInteger(cbxDecPlaces.Text());
    ShouldContinue = true;
    ExcludeString = txtNoData.Text();
    Hide();
  });
}

void brelmon_ThemeIDDialog::cmdCancel_Click() {
  Guard::Top(u"cmdCancel_Click", [&] {
    ClearAnswer();
    DoAllRecords = IgnoreValues = false;
    ExcludeString = txtNoData.Text();
    Hide();
  });
}

void brelmon_ThemeIDDialog::Form_Unload() {
  Guard::Top(u"Form_Unload", [&] {
    ClearAnswer();
    DoAllRecords = IgnoreValues = false;
    ExcludeString.clear();
    ArcApplication.Reset();
    theTableLayers = {};
    theCurrentSelected.Reset();
    fieldMap_.clear();
  });
}

}  // namespace brelmon
