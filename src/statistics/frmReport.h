// SPDX-License-Identifier: GPL-2.0-or-later
// The report window that stays open beside the host, in a frame of the host's.
#pragma once

#include <cstdint>

#include "platform/application.h"
#include "statistics/reportcontrols.h"

namespace brelmon {

class frmReport : public Form, public ReportControls {
 public:
  frmReport();

  /// The modeless frame around this form, made when first asked for. Its caption and visibility
  /// are the window's.
  Ref<IModelessFrame> Frame();

 protected:
  void Design() override;
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void cmdOK_Click();
  void cmdCopy_Click();
  void cmdPrint_Click();

  /// Twips between what a control keeps and the form's width or height, as designed.
  struct Margins {
    std::int32_t BackgroundHeight = 0, BackgroundWidth = 0;
    std::int32_t ReportHeight = 0, ReportWidth = 0;
    std::int32_t OKTop = 0, CopyTop = 0, PrintTop = 0;
    std::int32_t CornerTop = 0, CornerLeft = 0;
  };
  Margins margins_;
  Ref<IModelessFrame> m_pFrame;
};

}  // namespace brelmon
