// SPDX-License-Identifier: GPL-2.0-or-later
// Picture and frame of the Summarize help.
#include "summarize/frmSumHelp.h"

#include "forms/pictures.h"
#include "frame/guard.h"
#include "platform/services.h"

namespace brelmon {

frmSumHelp::frmSumHelp() : Form(u"frmSumHelp") {}

void frmSumHelp::Design() {
  constexpr Twips kWidth = 420 * kTwipsPerPixel, kHeight = 300 * kTwipsPerPixel;
  Form::Design(u"ArcGIS Summarize Help", kWidth, kHeight);
  Picture1.SetPicture(PictureOf(
      "summary-help.bmp",
      u"A table of records becomes a summary table: one record for each unique value of the "
      u"chosen field, with a count and the statistics of the other fields."));
  Picture1.Move(0, 0, kWidth, kHeight);
}

Ref<IModelessFrame> frmSumHelp::Frame() {
  return Guard::Top(u"Frame", [&] {
    if (!m_pFrame) {
      m_pFrame = HostObjects().NewModelessFrame();
      m_pFrame->Create(Ref<Form>(shared_from_this()));
      m_pFrame->SetCaption(u"ArcGIS Summarize Help");
    }
    return m_pFrame;
  });
}

}  // namespace brelmon
