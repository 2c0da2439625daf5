// SPDX-License-Identifier: GPL-2.0-or-later
// How the query text grows: each button drops its literal at the caret.
#include "frame/guard.h"
#include "selection/brelmon_modquerydialog.h"

namespace brelmon {
namespace {

constexpr TextView kEmptyQuery = u"(  )";
constexpr std::int32_t kInsideEmptyQuery = 2;
constexpr TextView kNot = u") AND ( NOT (  ) ";
constexpr std::int32_t kInsideNot = 14;  // between the blanks of its inner group

}  // namespace

void brelmon_ModQueryDialog::WireComposition() {
  cmdEquals.Click = [this] { Insert(u"cmdEquals_Click", u" = "); };
  cmdNotEqual.Click = [this] { Insert(u"cmdNotEqual_Click", u" <> "); };
  cmdGreater.Click = [this] { Insert(u"cmdGreater_Click", u" > "); };
  cmdGreaterEqual.Click = [this] { Insert(u"cmdGreaterEqual_Click", u" >= "); };
  cmdLess.Click = [this] { Insert(u"cmdLess_Click", u" < "); };
  cmdLessEqual.Click = [this] { Insert(u"cmdLessEqual_Click", u" <= "); };
  // The group that these open is closed by what stands behind the caret.
  cmdAnd.Click = [this] { Insert(u"cmdAnd_Click", u") AND ( "); };
  cmdOr.Click = [this] { Insert(u"cmdOr_Click", u") OR ("); };
  cmdNot.Click = [this] { cmdNot_Click(); };
  cmdParentheses.Click = [this] { cmdParentheses_Click(); };
  cmdClearQuery.Click = [this] { cmdClearQuery_Click(); };
}

void brelmon_ModQueryDialog::Insert(TextView procedure, TextView literal) {
  Guard::Top(procedure, [&] {
    txtQuery.SetSelText(Text(literal));
    txtQuery.SetFocus();
  });
}

void brelmon_ModQueryDialog::cmdNot_Click() {
  Guard::Top(u"cmdNot_Click", [&] {
    const std::int32_t start = txtQuery.SelStart();
    txtQuery.SetSelText(Text(kNot));
    txtQuery.SetSelStart(start + kInsideNot);
    txtQuery.SetSelLength(0);
    txtQuery.SetFocus();
  });
}

void brelmon_ModQueryDialog::cmdParentheses_Click() {
  Guard::Top(u"cmdParentheses_Click", [&] {
    if (txtQuery.SelLength() != 0) {
      txtQuery.SetSelText(u"(" + txtQuery.SelText() + u")");
    } else {
      txtQuery.SetText(u"(" + txtQuery.Text() + u")");
    }
    txtQuery.SetFocus();
  });
}

void brelmon_ModQueryDialog::cmdClearQuery_Click() {
  Guard::Top(u"cmdClearQuery_Click", [&] {
    txtQuery.SetText(Text(kEmptyQuery));
    txtQuery.SetSelStart(kInsideEmptyQuery);
  });
}

}  // namespace brelmon
