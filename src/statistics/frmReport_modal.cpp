// SPDX-License-Identifier: GPL-2.0-or-later
// The modal report window: its anchors and its buttons.
#include "statistics/frmReport_modal.h"

#include "frame/guard.h"

namespace brelmon {

frmReport_modal::frmReport_modal()
    : Form(u"frmReport_modal"), ReportControls(static_cast<Form&>(*this)) {
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCopy.Click = [this] { cmdCopy_Click(); };
  cmdPrint.Click = [this] { cmdPrint_Click(); };
}

void frmReport_modal::Design() {
  Form::Design(u"Report", kDesignWidth, kDesignHeight, true);
  DesignControls();
}

void frmReport_modal::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    anchors_ = std::make_unique<AnchorObjectList>();
    anchors_->Item(txtBackground)->SetAnchors(AnchorStretch, AnchorStretch);
    anchors_->Item(txtReport)->SetAnchors(AnchorStretch, AnchorStretch);
    anchors_->Item(cmdOK)->SetAnchors(AnchorScaled, AnchorFarEdge);
    anchors_->Item(cmdCopy)->SetAnchors(AnchorScaled, AnchorFarEdge);
    anchors_->Item(cmdPrint)->SetAnchors(AnchorScaled, AnchorFarEdge);
    anchors_->Item(imgCornerBars)->SetAnchors(AnchorFarEdge, AnchorFarEdge);
    anchors_->SetForm(*this);
  });
}

void frmReport_modal::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] { Unload(); });
}

void frmReport_modal::cmdCopy_Click() {
  Guard::Top(u"cmdCopy_Click", [&] { CopyReport(); });
}

void frmReport_modal::cmdPrint_Click() {
  Guard::Top(u"cmdPrint_Click", [&] { PrintReport(); });
}

}  // namespace brelmon
