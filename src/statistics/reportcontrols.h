// SPDX-License-Identifier: GPL-2.0-or-later
// What both report windows have: their controls, copying, printing.
#pragma once

#include "toolkit/controls.h"

namespace brelmon {

/// Lines of about 70 characters, broken behind a blank or hyphen. The first line may be as long
/// as 140, and the more breaks a text needs, the more of its end stays unbroken: two characters
/// for each.
Text WrapForPrint(const Text& text);

class ReportControls {
 public:
  explicit ReportControls(Form& owner);

  TextBox txtBackground;  // a border around txtReport
  TextBox txtReport;      // the report, here alone; copying and printing read what stands here
  CommandButton cmdOK;
  CommandButton cmdCopy;
  CommandButton cmdPrint;
  PictureBox imgCornerBars;

 protected:
  static constexpr Twips kDesignWidth = 7200, kDesignHeight = 5400;
  void DesignControls();
  void CopyReport();
  void PrintReport();
};

}  // namespace brelmon
