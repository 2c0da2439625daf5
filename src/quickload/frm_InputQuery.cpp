// SPDX-License-Identifier: GPL-2.0-or-later
// The input dialog of a saved query.
#include "quickload/frm_InputQuery.h"

#include "frame/guard.h"

namespace brelmon {

frm_InputQuery::frm_InputQuery() : Form(u"frm_InputQuery") {
  txtName.Change = [this] { txtName_Change(); };
  txtQuery.Change = [this] { txtQuery_Change(); };
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
}

void frm_InputQuery::Design() {
  Form::Design(u"Add BRELMON Query String:", 7020, 3855);
  lblInstructions.SetCaption(u"Please enter a name for this query string:");
  lblInstructions.Move(120, 120, 6780, 225);
  txtName.SetLabel(lblInstructions);
  txtName.Move(120, 420, 6780, 315);
  Label1.SetCaption(u"Please enter the query string:");
  Label1.Move(120, 900, 6780, 225);
  txtQuery.SetMultiLine(true);
  txtQuery.SetLabel(Label1);
  txtQuery.Move(120, 1200, 6780, 1560);
  Label2.SetCaption(u"(Hint:  Recommend that you copy and paste a query that has been verified!)");
  Label2.Move(120, 2850, 6780, 225);
  OKButton.SetCaption(u"OK");
  OKButton.SetDefault(true);
  OKButton.Move(4350, 3360, 1215, 375);
  CancelButton.SetCaption(u"Cancel");
  CancelButton.SetCancel(true);
  CancelButton.Move(5685, 3360, 1215, 375);
}

void frm_InputQuery::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    m_theName = u"Cancel";
    txtName.SetText(u"");
    txtQuery.SetText(u"");
    OKButton.SetEnabled(false);
  });
}

void frm_InputQuery::EnableOK() {
  OKButton.SetEnabled(!txtName.Text().empty() && !txtQuery.Text().empty());
}

void frm_InputQuery::txtName_Change() {
  Guard::Top(u"txtName_Change", [&] { EnableOK(); });
}

void frm_InputQuery::txtQuery_Change() {
  Guard::Top(u"txtQuery_Change", [&] { EnableOK(); });
}

void frm_InputQuery::OKButton_Click() {
  Guard::Top(u"OKButton_Click", [&] {
    m_theName = txtName.Text();
    m_theString = txtQuery.Text();
    Hide();
  });
}

void frm_InputQuery::CancelButton_Click() {
  Guard::Top(u"CancelButton_Click", [&] {
    Hide();
    m_theName = u"Cancel";
  });
}

}  // namespace brelmon
