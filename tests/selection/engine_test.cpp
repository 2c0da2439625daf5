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
    const char16_t *option, *query, *old;
    SelectionMethod method;
    Text definition;
  } rows[] = {
      {u"New", u"Q", u"", SelectionMethod::New, u"Q"},
      {u"New", u"Q", u"D", SelectionMethod::New, u"Q"},
      {u"Add", u"Q", u"", SelectionMethod::Add, u"Q"},
      {u"Add", u"( [B] = 2 )", u"( [A] = 1 )", SelectionMethod::Add,
       u"(( [A] = 1 )) OR (( [B] = 2 ))"},
      {u"Subtract", u"Q", u"D", SelectionMethod::Subtract, u"(D) AND (Q)"},
      {u"Select From", u"Q", u"D", SelectionMethod::And, u"(D) AND NOT (Q)"},
      {u"Clear", u"Q", u"D", SelectionMethod::New, u""},
  };
  for (const auto& row : rows) {
    const auto operation = ComposeOperation(row.option, row.query, row.old);
    EXPECT_EQ(operation.Method, row.method) << ToUtf8(row.option);
    EXPECT_EQ(operation.Definition, row.definition) << ToUtf8(row.option);
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

// On a filter, Subtract narrows to what matches and Subset takes it away.
TEST_F(Engine, EachSetButtonOnTheFilter) {
  const struct {
    Button button;
    std::string after, shown;
  } rows[] = {
      {&Dialog::cmdNewSet, "POP > 5", "POP > 5"},
      {&Dialog::cmdAddToSet, "(POP < 9) OR (POP > 5)", "(POP < 9) OR (POP > 5)"},
      {&Dialog::cmdSelFromSet, "(POP < 9) AND NOT (POP > 5)", "(POP < 9) AND NOT (POP > 5)"},
      {&Dialog::cmdSubtractFromSet, "(POP < 9) AND (POP > 5)", "(POP < 9) AND (POP > 5)"},
      {&Dialog::cmdClear, "", "- No Filter Definition Specified -"},
  };
  for (const auto& item : {Ref<FakeRows>(towns), Ref<FakeRows>(visits)}) {
    item->fields = {{u"POP", FieldType::Integer}};
    item->rows = {{5}, {7}, {9}};
    for (const auto& row : rows) {
      item->definition = u"POP < 9";
      item->selected = {0};
      OpenOn(item, [&](Dialog& dialog) {
        dialog.optFiltered.UserClick();
        dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
        (dialog.*row.button).UserClick();
        EXPECT_EQ(ToUtf8(dialog.txtCurrentFilter.Text()), row.shown);
      });
      EXPECT_EQ(ToUtf8(item->definition), row.after);
      EXPECT_EQ(item->selected, std::set<std::size_t>{0});
    }
  }
  EXPECT_EQ(Trails(world), "");
}

TEST_F(Engine, TriesTheQueryThenRedrawsThenApplies) {
  towns->log = &world.log;
  OpenOn(towns, [&](Dialog& dialog) {
    dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
    world.log.clear();
    dialog.cmdNewSet.UserClick();
  });
  ASSERT_EQ(world.log.size(), 5u);
  EXPECT_EQ(world.log[0], "Search [POP > 5] keeping");
  EXPECT_NE(world.log[1].find("4"), std::string::npos);
  EXPECT_EQ(world.log[2], "SelectFeatures Towns 0");
  EXPECT_EQ(world.log[3], "SelectionChanged Towns");
  EXPECT_NE(world.log[4].find("6"), std::string::npos);
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
  ASSERT_EQ(world.boxes.size(), 3u);
  EXPECT_EQ(ToUtf8(world.boxes[0].text),
            "Query didn't work!  Please check to make sure the query is formatted correctly...");
  EXPECT_EQ(ToUtf8(world.boxes[0].title), "Syntax Error:");
  EXPECT_EQ(world.boxes[0].style, 16);
  EXPECT_EQ(ToUtf8(world.boxes[1].text),
            "Query didn't work!  Please check the query for syntax errors...");
  EXPECT_EQ(ToUtf8(world.boxes[1].title), "Syntax Error:");
  EXPECT_EQ(world.boxes[1].style, 0);
  EXPECT_EQ(ToUtf8(world.boxes[2].text), "Query appears to be formatted correctly...");
  EXPECT_EQ(ToUtf8(world.boxes[2].title), "Query Verified:");
  EXPECT_EQ(world.boxes[2].style, 0);
  EXPECT_TRUE(towns->selected.empty());
  EXPECT_EQ(Trails(world), "");
}

TEST_F(Engine, ATableHasNoSelectionForTheSetButtons) {
  visits->selected = {0};
  OpenOn(visits, [&](Dialog& dialog) {
    dialog.txtQuery.UserEdit(u"WHO = ", 0, 0);
    dialog.cmdNewSet.UserClick();
    EXPECT_EQ(world.boxes.size(), 1u);
    EXPECT_TRUE(world.trails.empty());
    dialog.txtQuery.UserEdit(u"WHO = 'Bob'", 0, 0);
    for (CommandButton* button : {&dialog.cmdNewSet, &dialog.cmdAddToSet, &dialog.cmdSelFromSet,
                                  &dialog.cmdSubtractFromSet, &dialog.cmdClear}) {
      button->UserClick();
    }
    dialog.cmdVerify.UserClick();
    EXPECT_EQ(visits->selected, std::set<std::size_t>{0});
    dialog.cmdSwitchSel.UserClick();
    EXPECT_EQ(visits->selected, std::set<std::size_t>{1});
  });
  ASSERT_EQ(world.trails.size(), 5u);
  EXPECT_NE(ToUtf8(world.trails[0]).find("ModQueryDoSelection"), std::string::npos);
  EXPECT_NE(ToUtf8(world.trails[0]).find("\t91\r\n"), std::string::npos);
  EXPECT_EQ(world.boxes.size(), 2u);
}

/// The controls of one group that are enabled, by a letter each.
std::string Enabled(Dialog& dialog) {
  const struct {
    char letter;
    std::vector<Control*> controls;
  } groups[] = {
      {'q',
       {&dialog.lbxFields, &dialog.lbxValues, &dialog.txtQuery, &dialog.cmdEquals,
        &dialog.cmdNotEqual, &dialog.cmdGreater, &dialog.cmdGreaterEqual, &dialog.cmdLess,
        &dialog.cmdLessEqual, &dialog.cmdAnd, &dialog.cmdOr, &dialog.cmdNot,
        &dialog.cmdParentheses}},
      {'u', {&dialog.cmdUpdate}},
      {'s', {&dialog.cmdNewSet, &dialog.cmdAddToSet, &dialog.cmdClear}},
      {'n', {&dialog.cmdSelFromSet, &dialog.cmdSubtractFromSet}},
      {'t', {&dialog.cmdOpenTable, &dialog.cmdOpenStats, &dialog.cmdSwitchSel, &dialog.cmdVerify}},
      {'+', {&dialog.cmdClearQuery, &dialog.cmdLoadQJQuery, &dialog.cmdCancel}},
  };
  std::string letters;
  for (const auto& group : groups) {
    std::size_t enabled = 0;
    for (Control* control : group.controls) enabled += control->Enabled() ? 1 : 0;
    if (enabled != 0) letters += group.letter;
    if (enabled != 0 && enabled != group.controls.size()) letters += '?';
  }
  return letters;
}

TEST_F(Engine, ButtonsFollowLayerAndOptionAndLagBehindTheSets) {
  Open([&](Dialog& dialog) {
    EXPECT_EQ(Enabled(dialog), "+");
    EXPECT_EQ(ToUtf8(dialog.lblNumSelected.Caption()), "Number of features = [ - No Theme - ]");
    dialog.lbxThemes.UserClick(0);
    EXPECT_EQ(Enabled(dialog), "qst+");
    dialog.lbxFields.UserClick(1);
    EXPECT_EQ(Enabled(dialog), "qust+");
    dialog.txtQuery.UserEdit(u"POP > 5", 0, 0);
    dialog.cmdNewSet.UserClick();
    EXPECT_EQ(Enabled(dialog), "qust+");  // though something is selected now
    dialog.optSelected.UserClick();
    dialog.lbxThemes.UserClick(0);
    EXPECT_EQ(Enabled(dialog), "qsnt+");
    dialog.cmdClear.UserClick();
    EXPECT_EQ(Enabled(dialog), "qsnt+");  // though nothing is selected any more
    dialog.optFiltered.UserClick();
    EXPECT_EQ(Enabled(dialog), "qst+");
    EXPECT_EQ(ToUtf8(dialog.cmdClear.Caption()), "Clear Filter");
    dialog.cmdNewSet.UserClick();
    EXPECT_EQ(Enabled(dialog), "qst+");
    dialog.lbxThemes.UserClick(0);
    EXPECT_EQ(Enabled(dialog), "qsnt+");
    dialog.optSelected.UserClick();
    EXPECT_EQ(Enabled(dialog), "qst+");
    EXPECT_EQ(ToUtf8(dialog.cmdClear.Caption()), "Clear Selected");
    EXPECT_EQ(ToUtf8(dialog.txtCurrentFilter.Text()), "POP > 5");
  });
}

TEST_F(Engine, SwitchingTurnsTheSelectionOver) {
  towns->selected = {0};
  OpenOn(towns, [&](Dialog& dialog) {
    towns->log = &world.log;
    world.log.clear();
    dialog.cmdSwitchSel.UserClick();
    EXPECT_EQ(ToUtf8(dialog.lblNumSelected.Caption()), "Number of features highlighted = 2");
  });
  ASSERT_EQ(world.log.size(), 4u);
  EXPECT_EQ(world.log[1], "SelectFeatures Towns 4");
  EXPECT_EQ(world.log[2], "SelectionChanged Towns");
  EXPECT_EQ(world.log[0], world.log[3]);
  EXPECT_EQ(towns->selected, (std::set<std::size_t>{1, 2}));
}

}  // namespace
}  // namespace brelmon::test
