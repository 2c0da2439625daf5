// SPDX-License-Identifier: GPL-2.0-or-later
// Fields, tokens, values and the count.
#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using Model = QueryDialogTest;

TEST_F(Model, ValuesByTypeOfField) {
  const Date noon = ToDate(CivilTime{2026, 11, 16, 12, 0, 0});
  const Date earlier = ToDate(CivilTime{1999, 2, 3, 0, 0, 0});
  const struct {
    FieldType type;
    std::vector<Value> values;
    std::string shown;
  } rows[] = {
      {FieldType::String, {u"b", u"O'Brien", u"a", u"b", Null{}}, "'a'; 'b'; 'O'Brien'"},
      {FieldType::SmallInteger, {10, 9, -3}, "-3; 9; 10"},
      {FieldType::Integer, {100000, 20}, "20; 100000"},
      {FieldType::OID, {12, 2}, "2; 12"},
      {FieldType::Single, {2.5, -0.0, 10.0}, "0; 2.5; 10"},
      {FieldType::Double, {1.0 / 3, 0.1 + 0.2, 1e15}, "0.3; 0.333333333333333; 1E+15"},
      {FieldType::Date, {noon, earlier}, "2/3/1999; 11/16/2026 12:00:00 PM"},
  };
  for (const auto& row : rows) {
    towns->fields = {{u"F", row.type}};
    towns->rows.clear();
    for (const Value& value : row.values) towns->rows.push_back({value});
    towns->selected = {0};
    OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) {
      EXPECT_FALSE(dialog.cmdUpdate.Enabled());
      dialog.lbxFields.UserClick(0);
      dialog.cmdUpdate.UserClick();
      EXPECT_EQ(Rows(dialog.lbxValues), row.shown);
    });
  }
  EXPECT_EQ(Trails(world), "");
}

TEST_F(Model, NamesComeOutOfTheirBrackets) {
  towns->dataSourceType = u"Personal Geodatabase Feature Class";
  OpenOn(towns, [](brelmon_ModQueryDialog& dialog) {
    dialog.lbxFields.UserDoubleClick(2);
    EXPECT_EQ(ToUtf8(dialog.txtQuery.Text()), "( [NAME] )");
    dialog.cmdUpdate.UserClick();
    EXPECT_EQ(Rows(dialog.lbxValues), "'A'; 'b'; 'O'Brien'");
  });
}

TEST_F(Model, GatheringShowsItsProgress) {
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) {
    dialog.lbxFields.UserClick(2);
    world.log.clear();
    dialog.cmdUpdate.UserClick();
  });
  const Log expected = {
      "Pointer 11",         "Bar [Gathering values from field [NAME]] 1..1 by 1 one panel",
      "Search [] keeping",  "Bar [Gathering values from field [NAME]] 1..3 by 1 one panel",
      "Bar hidden after 3", "Pointer 0"};
  EXPECT_EQ(world.log, expected);
}

TEST_F(Model, HourglassStaysWhereGatheringStopsShort) {
  towns->rows.clear();
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) {
    dialog.lbxFields.UserClick(2);
    dialog.cmdUpdate.UserClick();
  });
  EXPECT_EQ(world.pointer, Pointer::Hourglass);
  EXPECT_EQ(FailureIn(world), 9);
}

TEST_F(Model, CountFollowsTheOptionAndOtherWindows) {
  towns->selected = {0, 1};
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) {
    dialog.optFiltered.UserClick();
    EXPECT_EQ(ToUtf8(dialog.lblNumSelected.Caption()), "Number of features displayed = 3");
    dialog.optSelected.UserClick();
    towns->selected = {0};
    dialog.UserActivate();
    EXPECT_EQ(ToUtf8(dialog.lblNumSelected.Caption()), "Number of features highlighted = 1");
    towns->selected.clear();
    dialog.Form::UserClick();
    EXPECT_EQ(ToUtf8(dialog.lblNumSelected.Caption()), "Number of features highlighted = 0");
  });
}

}  // namespace
}  // namespace brelmon::test
