// SPDX-License-Identifier: GPL-2.0-or-later
// The input dialog of a bookmark's name.
#include "quickload/frm_InputSpatialBookmark.h"

#include "frame/guard.h"

namespace brelmon {

frm_InputSpatialBookmark::frm_InputSpatialBookmark() : Form(u"frm_InputSpatialBookmark") {
  txtName.Change = [this] { txtName_Change(); };
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
}

void frm_InputSpatialBookmark::Design() {
  Form::Design(u"Create BRELMON Spatial Bookmark:", 5400, 1515);
  lblInstructions.SetCaption(u"Please enter a name for this spatial bookmark:");
  lblInstructions.Move(120, 120, 5160, 225);
  txtName.SetText(u"Text1");
  txtName.SetLabel(lblInstructions);
  txtName.Move(120, 420, 5160, 315);
  OKButton.SetCaption(u"OK");
  OKButton.SetDefault(true);
  OKButton.Move(2730, 1020, 1215, 375);
  CancelButton.SetCaption(u"Cancel");
  CancelButton.SetCancel(true);
  CancelButton.Move(4065, 1020, 1215, 375);
}

void frm_InputSpatialBookmark::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    m_theModalResult = u"Cancel";
    txtName.SetText(u"");
    OKButton.SetEnabled(false);
  });
}

void frm_InputSpatialBookmark::txtName_Change() {
  Guard::Top(u"txtName_Change", [&] { OKButton.SetEnabled(!txtName.Text().empty()); });
}

void frm_InputSpatialBookmark::OKButton_Click() {
  Guard::Top(u"OKButton_Click", [&] {
    m_theModalResult = txtName.Text();
    Hide();
  });
}

void frm_InputSpatialBookmark::CancelButton_Click() {
  Guard::Top(u"CancelButton_Click", [&] { Hide(); });
}

}  // namespace brelmon
