// SPDX-License-Identifier: GPL-2.0-or-later
// Message boxes and report window of the QuickLoad commands.
#include "quickload/QuickLoadMessages.h"

#include "platform/services.h"
#include "statistics/frmReport_modal.h"

namespace brelmon::QuickLoadMessages {

void TellFileMissing() {
  MsgBox(
      u"Unable to find Brelmon 'QuickLoad.txt' file.  File should be located in the same directory "
      u"as the ArcGIS MxD file." +
          Text(kCrLf) + Text(kCrLf) + u"Bailing out...",
      box::kInformation, u"QuickLoad Editor Cancelled:");
}

bool MayCreate(const Text& path) {
  return MsgBox(u"No text file available at " + path + u".  Do you wish to create the file?",
                box::kYesNo, u"Need to create new QuickLoad.txt file:") == box::kAnswerYes;
}

void TellSaved(const Text& name) {
  MsgBox(u"'" + name + u"' has been saved to the QuickLoad.txt file.");
}

void ShowReport(const Text& report, const Text& caption) {
  const auto window = New<frmReport_modal>();
  Font font = window->txtReport.Font();
  font.Size = 8;
  window->txtReport.SetFont(font);
  window->txtReport.SetText(report);
  window->SetCaption(caption);
  window->ShowModal();
}

}  // namespace brelmon::QuickLoadMessages
