// SPDX-License-Identifier: GPL-2.0-or-later
// How clicks make a query.
#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using Composition = QueryDialogTest;

TEST_F(Composition, GrowsByClicksAlone) {
  towns->dataSourceType = u"Personal Geodatabase Feature Class";
  OpenOn(towns, [](brelmon_ModQueryDialog& dialog) {
    const auto field = [&](std::int32_t row) { dialog.lbxFields.UserDoubleClick(row); };
    const auto value = [&](std::int32_t row) {
      dialog.cmdUpdate.UserClick();
      dialog.lbxValues.UserDoubleClick(row);
    };
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( | )");
    field(1);
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( [POP]| )");
    dialog.cmdGreater.UserClick();
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( [POP] > | )");
    value(0);
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( [POP] > 5| )");
    dialog.cmdAnd.UserClick();
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( [POP] > 5) AND ( | )");
    field(2);
    dialog.cmdEquals.UserClick();
    value(0);
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( [POP] > 5) AND ( [NAME] = 'A'| )");
    EXPECT_TRUE(dialog.txtQuery.HasFocus());
  });
}

TEST_F(Composition, EachOperatorAtTheCaretAndOnASelection) {
  const struct {
    CommandButton brelmon_ModQueryDialog::*button;
    std::string atCaret, onSelection;
  } rows[] = {
      {&brelmon_ModQueryDialog::cmdEquals, "(  = | )", "( x = |y )"},
      {&brelmon_ModQueryDialog::cmdNotEqual, "(  <> | )", "( x <> |y )"},
      {&brelmon_ModQueryDialog::cmdGreater, "(  > | )", "( x > |y )"},
      {&brelmon_ModQueryDialog::cmdGreaterEqual, "(  >= | )", "( x >= |y )"},
      {&brelmon_ModQueryDialog::cmdLess, "(  < | )", "( x < |y )"},
      {&brelmon_ModQueryDialog::cmdLessEqual, "(  <= | )", "( x <= |y )"},
      {&brelmon_ModQueryDialog::cmdAnd, "( ) AND ( | )", "( x) AND ( |y )"},
      {&brelmon_ModQueryDialog::cmdOr, "( ) OR (| )", "( x) OR (|y )"},
      {&brelmon_ModQueryDialog::cmdNot, "( ) AND ( NOT ( | )  )", "( x) AND ( NOT ( | ) y )"},
      {&brelmon_ModQueryDialog::cmdParentheses, "|((  ))", "( x(old)|y )"},
  };
  OpenOn(towns, [&](brelmon_ModQueryDialog& dialog) {
    for (const auto& row : rows) {
      dialog.cmdClearQuery.UserClick();
      (dialog.*row.button).UserClick();
      EXPECT_EQ(WithCaret(dialog.txtQuery), row.atCaret);
      EXPECT_TRUE(dialog.txtQuery.HasFocus()) << row.atCaret;
      dialog.txtQuery.UserEdit(u"( xoldy )", 3, 3);
      (dialog.*row.button).UserClick();
      EXPECT_EQ(WithCaret(dialog.txtQuery), row.onSelection);
    }
  });
}

TEST_F(Composition, ParenthesesWrapTheWholeTextAgainAndAgain) {
  OpenOn(towns, [](brelmon_ModQueryDialog& dialog) {
    dialog.cmdParentheses.UserClick();
    dialog.cmdParentheses.UserClick();
    EXPECT_EQ(WithCaret(dialog.txtQuery), "|(((  )))");
  });
}

TEST_F(Composition, ClearingSetsTheCaretAndNotTheFocus) {
  OpenOn(towns, [](brelmon_ModQueryDialog& dialog) {
    dialog.txtQuery.UserEdit(u"POP > 5", 7, 0);
    dialog.cmdClearQuery.UserClick();
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( | )");
    EXPECT_TRUE(dialog.cmdClearQuery.HasFocus());
  });
}

TEST_F(Composition, DoubleClickReplacesWhatIsSelected) {
  OpenOn(towns, [](brelmon_ModQueryDialog& dialog) {
    dialog.txtQuery.UserEdit(u"( old )", 2, 3);
    dialog.lbxFields.UserDoubleClick(2);
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( \"NAME\"| )");
    dialog.txtQuery.UserEdit(u"( old )", 2, 3);
    dialog.lbxFields.SetListIndex(-1);
    dialog.lbxFields.DblClick();
    EXPECT_EQ(WithCaret(dialog.txtQuery), "( | )");
  });
}

TEST_F(Composition, OperatorsAreNamedForAScreenReader) {
  Open([](brelmon_ModQueryDialog& dialog) {
    EXPECT_EQ(ToUtf8(dialog.cmdEquals.AccessibleName()), "Equals");
    EXPECT_EQ(ToUtf8(dialog.cmdParentheses.AccessibleName()), "Parentheses");
    EXPECT_EQ(ToUtf8(dialog.cmdSwitchSel.AccessibleName()), "Switch Selection");
    EXPECT_EQ(ToUtf8(dialog.txtQuery.AccessibleName()), "Query Statement");
  });
}

}  // namespace
}  // namespace brelmon::test
