// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog "Calculate Statistics:": a layer or table, numeric fields, records, values to ignore.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/application.h"
#include "platform/collection.h"
#include "platform/table.h"
#include "toolkit/controls.h"

namespace brelmon {

class brelmon_ThemeIDDialog : public Form {
 public:
  brelmon_ThemeIDDialog();

  // Given before the first touch of a control, which loads the form.
  Ref<IApplication> ArcApplication;
  Collection<Ref<IObject>> theTableLayers;  // under the keys "0", "1"...
  Ref<IObject> theCurrentSelected;

  // The answer, read after the form has hidden itself; cleared by its unload.
  bool ShouldContinue = false;
  Ref<ITable> StatisticsTable() const { return chosen_.As<ITable>(); }
  Collection<std::int32_t> StatisticsFieldIndices;
  bool DoAllRecords = false;
  bool IgnoreValues = false;
  std::vector<double> IgnoreValuesArray{0};  // one 0 where nothing is ignored
  Text ExcludeString;                        // as typed
  std::int16_t NumberDecimalPlaces = 0;

  Label lblTheme{*this, u"lblTheme"};
  ListBox lbxTheme{*this, u"lbxTheme"};
  Label lblField{*this, u"lblField"};
  ListBox lbxField{*this, u"lbxField"};
  Frame cpAllOrSel{*this, u"cpAllOrSel"};
  OptionButton optSelected{*this, u"optSelected"};
  Label lblSelCount{*this, u"lblSelCount"};
  OptionButton optAll{*this, u"optAll"};
  Frame cpIgnoreValues{*this, u"cpIgnoreValues"};
  CheckBox chkNoData{*this, u"chkNoData"};
  TextBox txtNoData{*this, u"txtNoData"};
  Label lblInstructions{*this, u"lblInstructions"};
  Frame cpDecPlaces{*this, u"cpDecPlaces"};
  Label lbl_cbxDecPlaces{*this, u"lbl_cbxDecPlaces"};
  ComboBox cbxDecPlaces{*this, u"cbxDecPlaces"};
  CommandButton cmdOK{*this, u"cmdOK"};
  CommandButton cmdCancel{*this, u"cmdCancel"};

 protected:
  void Design() override;
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void DesignLists();
  void DesignFrames();
  void lbxTheme_Click();
  void lbxField_Click();
  void chkNoData_Click();
  void cmdOK_Click();
  void cmdCancel_Click();

  void ListItems();
  void ListNumericFields(const Ref<IObject>& item);
  void ShowSelection(const Ref<IObject>& item);
  void EnableNoData();
  void ClearAnswer();
  /// False, with a message, where one of the pieces is no number.
  bool ReadIgnoreValues();

  /// A line of lbxField: what the user reads, and where the field stands in the layer or table.
  struct FieldRow {
    Text Alias;
    std::int32_t Index = 0;
  };
  std::vector<FieldRow> fieldMap_;
  Ref<IObject> chosen_;
};

}  // namespace brelmon
