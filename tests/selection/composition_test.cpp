// SPDX-License-Identifier: GPL-2.0-or-later
// How clicks make a query.
#include "tests/selection/queryworld.h"

namespace brelmon::test {
namespace {

using Composition = QueryDialogTest;

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

}  // namespace
}  // namespace brelmon::test
