// SPDX-License-Identifier: GPL-2.0-or-later
// The report window of dialogs that are modal themselves.
#pragma once

#include <memory>

#include "forms/AnchorObjectList.h"
#include "statistics/reportcontrols.h"

namespace brelmon {

class frmReport_modal : public Form, public ReportControls {
 public:
  frmReport_modal();

 protected:
  void Design() override;
  void Form_Load() override;

 private:
  void cmdOK_Click();
  void cmdCopy_Click();
  void cmdPrint_Click();

  std::unique_ptr<AnchorObjectList> anchors_;
};

}  // namespace brelmon
