// SPDX-License-Identifier: GPL-2.0-or-later
// The statistics dialog from its properties to its answer.
#include "statistics/brelmon_themeiddialog.h"

#include <gtest/gtest.h>

#include "platform/number.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

class StatisticsDialog : public testing::Test {
 protected:
  StatisticsDialog() {
    tracts = world.map->AddFeatureLayer(u"Tracts",
                                        {{u"FID", FieldType::OID},
                                         {u"NAME", FieldType::String},
                                         {u"POP", FieldType::Integer, u"Population"},
                                         {u"HIDDEN", FieldType::Double, u"", false},
                                         {u"DENS", FieldType::Single, u"Density"}},
                                        {{1, u"a", 10, 0.0, 0.5}, {2, u"b", 20, 0.0, 1.5}});
    rain = world.map->AddTable(u"Rain", {{u"MM", FieldType::SmallInteger}}, {{5}});
    dialog->ArcApplication = world.application;
    dialog->theTableLayers.Add(tracts, u"0");
    dialog->theTableLayers.Add(rain, u"1");
    dialog->theCurrentSelected = tracts;
  }
  /// What cmdOK makes of ignored values as typed.
  void Ignore(const Text& typed) {
    dialog->chkNoData.SetValue(1);
    dialog->txtNoData.SetText(typed);
    dialog->cmdOK_();
  }

  FakeWorld world;
  Ref<test::FakeLayer> tracts;
  Ref<test::FakeStandaloneTable> rain;
  struct Dialog : brelmon_ThemeIDDialog {
    /// A click on a field, then on the button.
    void cmdOK_() {
      lbxField.UserClick(0);
      cmdOK.UserClick();
    }
  };
  Ref<Dialog> dialog = New<Dialog>();
};

TEST_F(StatisticsDialog, OpensOnTheSelectedItem) {
  tracts->selected = {1};
  EXPECT_EQ(ToUtf8(dialog->Dump()),
            R"dump(Form brelmon_ThemeIDDialog "Calculate Statistics:" 6300x6435
  Label lblTheme 120,120 2970x225 "Layers:"
  ListBox lbxTheme 120,375 2970x2400 for="lblTheme" rows=2: >"Tracts", "Rain"
  Label lblField 3210,120 2970x225 "Numeric Fields:"
  ListBox lbxField 3210,375 2970x2400 for="lblField" extended rows=2: "Population", "Density"
  Frame cpAllOrSel 120,2895 6060x1065 " Calculate Statistics For "
    OptionButton optSelected 180,300 2460x255 "Only selected features" on
    Label lblSelCount 2700,315 3240x225 "(1 of 2 records selected...)"
    OptionButton optAll 180,645 2460x255 "All features" off
  Frame cpIgnoreValues 120,4080 6060x1020 "Ignore Values"
    CheckBox chkNoData 180,300 1020x255 "Ignore" value=0
    TextBox txtNoData 1260,270 4620x315 disabled for="cpIgnoreValues" text="-9999" caret=0
    Label lblInstructions 1260,660 4620x225 "(Separate multiple values by commas)" disabled
  Frame cpDecPlaces 120,5220 6060x600
    Label lbl_cbxDecPlaces 180,210 2760x225 "Number of Decimal Places ="
    ComboBox cbxDecPlaces 3000,165 900x315 for="lbl_cbxDecPlaces" text="2" rows=7: "0", "1", >"2", "3", "4", "5", "6"
  CommandButton cmdOK 3720,5940 1170x375 "OK" disabled default
  CommandButton cmdCancel 5010,5940 1170x375 "Cancel" cancel
)dump");
}

TEST_F(StatisticsDialog, AnswersWithIndicesOfTheLayerInListOrder) {
  tracts->selected = {0};
  dialog->lbxField.UserClick(1);
  dialog->lbxField.UserClick(0, true);
  dialog->optAll.UserClick();
  dialog->cbxDecPlaces.UserType(u"9");
  dialog->cmdOK.UserClick();
  ASSERT_EQ(dialog->StatisticsFieldIndices.Count(), 2);
  EXPECT_EQ(dialog->StatisticsFieldIndices.Item(1), 2);
  EXPECT_EQ(dialog->StatisticsFieldIndices.Item(2), 4);
  EXPECT_TRUE(dialog->DoAllRecords);
  EXPECT_EQ(dialog->NumberDecimalPlaces, 9);
  EXPECT_EQ(dialog->IgnoreValuesArray, std::vector<double>{0});
}

TEST_F(StatisticsDialog, RefusesIgnoredValuesThatAreNoNumbers) {
  for (const auto& [typed, listed] : std::map<Text, std::string>{
           {u"1, 2,x", " --> x\r\n"}, {u",7", " --> \r\n"}, {u"a,b", " --> a\r\n --> b\r\n"}}) {
    world.boxes.clear();
    Ignore(typed);
    EXPECT_EQ(Boxes(world),
              "[Problems with Ignore Values:] These values are not numbers!  Please re-enter the "
              "values you would like to ignore...\r\n\r\n" +
                  listed + "\n");
    EXPECT_EQ(dialog->txtNoData.BackColor(), colour::kYellow);
    EXPECT_FALSE(dialog->ShouldContinue);
  }
}

TEST_F(StatisticsDialog, HoldsAThousandAndOneFields) {
  auto wide = world.map->AddFeatureLayer(u"Wide");
  for (std::int32_t i = 0; i < 1001; ++i) wide->fields.push_back({u"F" + GeneralText(i)});
  dialog->theTableLayers.Add(wide, u"2");
  dialog->lbxTheme.UserClick(2);
  EXPECT_EQ(Trails(world), "");
  EXPECT_EQ(dialog->lbxField.ListCount(), 1001);
  wide->fields.push_back({u"TOOMANY"});
  dialog->lbxTheme.UserClick(2);
  EXPECT_EQ(FailureIn(world), 9);
}

}  // namespace
}  // namespace brelmon
