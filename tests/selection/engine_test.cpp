// SPDX-License-Identifier: GPL-2.0-or-later
// What a query does to selection, filter and buttons.
#include "selection/queryoperation.h"
#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using Engine = QueryDialogTest;
using Dialog = brelmon_ModQueryDialog;
using Button = CommandButton Dialog::*;

TEST(QueryOperationTest, ComposesMethodAndDefinition) {
  const struct {
    SetOperation operation;
    const char16_t *query, *old;
    SelectionMethod method;
    Text definition;
  } rows[] = {
      {SetOperation::New, u"Q", u"", SelectionMethod::New, u"Q"},
      {SetOperation::Add, u"( [B] = 2 )", u"( [A] = 1 )", SelectionMethod::Add,
       u"(( [A] = 1 )) OR (( [B] = 2 ))"},
      {SetOperation::Subtract, u"Q", u"D", SelectionMethod::Subtract, u"(D) AND (Q)"},
      {SetOperation::SelectFrom, u"Q", u"D", SelectionMethod::And, u"(D) AND NOT (Q)"},
      {SetOperation::Clear, u"Q", u"D", SelectionMethod::New, u""},
  };
  for (const auto& row : rows) {
    const auto operation = ComposeOperation(row.operation, row.query, row.old);
    EXPECT_EQ(operation.Method, row.method) << ToUtf8(row.definition);
    EXPECT_EQ(operation.Definition, row.definition) << static_cast<int>(row.operation);
  }
}

TEST_F(Engine, EachSetButtonOnTheSelection) {
  const struct {
    Button button;
    std::set<std::size_t> before, after;
  } rows[] = {
      {&Dialog::cmdNewSet, {0}, {1, 2}},     {&Dialog::cmdAddToSet, {0}, {0, 1, 2}},
      {&Dialog::cmdSelFromSet, {0, 1}, {1}}, {&Dialog::cmdSubtractFromSet, {0, 1}, {0}},
      {&Dialog::cmdClear, {0, 1}, {}},
  };
  for (const auto& row : rows) {
    towns->selected = row.before;
    OpenOn(towns, [&](Dialog& dialog) {
      dialog.txtQuery.UserEdit(u"\"POP\" > 5", 0, 0);
      (dialog.*row.button).UserClick();
    });
    EXPECT_EQ(towns->selected, row.after);
    EXPECT_EQ(towns->definition, u"");
  }
  EXPECT_EQ(Trails(world), "");
}

TEST_F(Engine, EachSetButtonOnTheFilter) {
  // Subtract narrows to what matches and Subset takes it away.
  const std::vector<std::pair<Button, std::string>> rows = {
      {&Dialog::cmdNewSet, "POP > 5"},
      {&Dialog::cmdAddToSet, "(POP < 9) OR (POP > 5)"},
      {&Dialog::cmdSelFromSet, "(POP < 9) AND NOT (POP > 5)"},
      {&Dialog::cmdSubtractFromSet, "(POP < 9) AND (POP > 5)"},
      {&Dialog::cmdClear, ""},
  };
  for (const auto& item : {Ref<FakeRows>(towns), Ref<FakeRows>(visits)}) {
    item->fields = {{u"POP", FieldType::Integer}};
    item->rows = {{5}, {7}, {9}};
    for (const auto& [button, after] : rows) {
      item->definition = u"POP < 9";
      OpenOn(item, [&](Dialog& dialog) {
        dialog.optFiltered.UserClick();
        dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
        (dialog.*button).UserClick();
        EXPECT_EQ(ToUtf8(dialog.txtCurrentFilter.Text()),
                  after.empty() ? "- No Filter Definition Specified -" : after);
      });
      EXPECT_EQ(ToUtf8(item->definition), after);
    }
  }
}

TEST_F(Engine, TheFirstItemsFilterCanBeNarrowed) {
  towns->definition = u"POP < 9";
  OpenOn(towns, [](Dialog& dialog) {
    EXPECT_FALSE(dialog.cmdSelFromSet.Enabled());
    dialog.optFiltered.UserClick();
    EXPECT_TRUE(dialog.cmdSelFromSet.Enabled() && dialog.cmdSubtractFromSet.Enabled());
  });
}

TEST_F(Engine, TriesTheQueryThenRedrawsThenApplies) {
  towns->log = &world.log;
  OpenOn(towns, [&](Dialog& dialog) {
    dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
    world.log.clear();
    dialog.cmdNewSet.UserClick();
  });
  EXPECT_EQ(world.log,
            (Log{"Search [POP > 5] keeping", "PartialRefresh 4", "SelectFeatures Towns 0",
                 "SelectionChanged Towns", "PartialRefresh 6 data"}));
}

TEST_F(Engine, ABadQueryChangesNothingAndIsToldInTwoWays) {
  towns->selected = {0};
  OpenOn(towns, [&](Dialog& dialog) {
    dialog.txtQuery.UserEdit(u"\"NAME\" = 'O'Brien'", 0, 0);
    dialog.cmdNewSet.UserClick();
    dialog.cmdVerify.UserClick();
    dialog.cmdClear.UserClick();  // never tried
    dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
    dialog.cmdVerify.UserClick();
  });
  EXPECT_EQ(Boxes(world),
            "[Syntax Error:] Query didn't work!  Please check to make sure the query is formatted "
            "correctly...\n"
            "[Syntax Error:] Query didn't work!  Please check the query for syntax errors...\n"
            "[Query Verified:] Query appears to be formatted correctly...\n");
  EXPECT_EQ(world.boxes[0].style, 16);
  EXPECT_EQ(world.boxes[1].style, 0);
  EXPECT_TRUE(towns->selected.empty());
}

TEST_F(Engine, ATableHasNoSelectionForTheSetButtons) {
  visits->selected = {0};
  OpenOn(visits, [&](Dialog& dialog) {
    dialog.txtQuery.UserEdit(u"WHO = 'Bob'", 0, 0);
    for (CommandButton* button : {&dialog.cmdNewSet, &dialog.cmdAddToSet, &dialog.cmdSelFromSet,
                                  &dialog.cmdSubtractFromSet, &dialog.cmdClear}) {
      button->UserClick();
    }
    EXPECT_EQ(visits->selected, std::set<std::size_t>{0});
    dialog.cmdSwitchSel.UserClick();
    EXPECT_EQ(visits->selected, std::set<std::size_t>{1});
  });
  EXPECT_EQ(world.trails.size(), 5u);
  EXPECT_EQ(FailureIn(world), 91);
}

TEST_F(Engine, ButtonsFollowLayerAndOptionAndLagBehindTheSets) {
  Open([&](Dialog& dialog) {
    /// Query, update, sets, narrowing sets, tools: a letter where the group is enabled.
    const auto enabled = [&] {
      return std::string(dialog.txtQuery.Enabled() && dialog.cmdNot.Enabled() ? "q" : "") +
             (dialog.cmdUpdate.Enabled() ? "u" : "") + (dialog.cmdNewSet.Enabled() ? "s" : "") +
             (dialog.cmdSelFromSet.Enabled() ? "n" : "") + (dialog.cmdVerify.Enabled() ? "t" : "");
    };
    EXPECT_EQ(enabled(), "");
    dialog.lbxThemes.UserClick(0);
    EXPECT_EQ(enabled(), "qst");
    dialog.lbxFields.UserClick(1);
    dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
    dialog.cmdNewSet.UserClick();
    EXPECT_EQ(enabled(), "qust");  // though something is selected now
    dialog.lbxThemes.UserClick(0);
    EXPECT_EQ(enabled(), "qsnt");
    dialog.cmdClear.UserClick();
    EXPECT_EQ(enabled(), "qsnt");  // though nothing is selected any more
    dialog.optFiltered.UserClick();
    EXPECT_EQ(enabled(), "qst");
    EXPECT_EQ(ToUtf8(dialog.cmdClear.Caption()), "Clear Filter");
    dialog.cmdNewSet.UserClick();
    dialog.lbxThemes.UserClick(0);
    EXPECT_EQ(enabled(), "qsnt");
    dialog.optSelected.UserClick();
    EXPECT_EQ(enabled(), "qst");
  });
}

}  // namespace
}  // namespace brelmon::test
