// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog of "QL Edit - Delete Reference".
#include "quickload/frm_QLDelete.h"

#include "forms/pictures.h"
#include "frame/guard.h"

namespace brelmon {

frm_QLDelete::frm_QLDelete() : Form(u"frm_QLDelete") {
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
}

void frm_QLDelete::Design() {
  Form::Design(u"Delete References from QuickLoad File:", 6420, 4815, true);
  lblInstructions.SetCaption(
      u"Please select the references to delete from the QuickLoad.txt file:");
  lblInstructions.Move(120, 120, 6180, 225);
  lbxReferences.SetMultiSelect(ListBox::Select::Extended);
  lbxReferences.SetLabel(lblInstructions);
  lbxReferences.Move(120, 420, 6180, 3780);
  OKButton.SetCaption(u"OK");
  OKButton.SetDefault(true);
  OKButton.Move(120, 4320, 1215, 375);
  CancelButton.SetCaption(u"Cancel");
  CancelButton.SetCancel(true);
  CancelButton.Move(1455, 4320, 1215, 375);
  imgCornerBars.SetPicture(CornerBars());
  imgCornerBars.Move(6195, 4590, 225, 225);
}

void frm_QLDelete::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    m_pAnchors = std::make_unique<AnchorObjectList>();
    m_pAnchors->Item(lbxReferences)->SetAnchors(AnchorStretch, AnchorStretch);
    m_pAnchors->Item(OKButton)->SetAnchors(AnchorFixed, AnchorFarEdge);
    m_pAnchors->Item(CancelButton)->SetAnchors(AnchorFixed, AnchorFarEdge);
    m_pAnchors->Item(imgCornerBars)->SetAnchors(AnchorFarEdge, AnchorFarEdge);
    m_pAnchors->SetForm(*this);
  });
}

void frm_QLDelete::OKButton_Click() {
  Guard::Top(u"OKButton_Click", [&] {
    Hide();
    m_ShouldContinue = true;
  });
}

void frm_QLDelete::CancelButton_Click() {
  Guard::Top(u"CancelButton_Click", [&] { Hide(); });
}

}  // namespace brelmon
