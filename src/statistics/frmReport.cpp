// SPDX-License-Identifier: GPL-2.0-or-later
// The modeless report window: its frame and its layout.
#include "statistics/frmReport.h"

#include "frame/guard.h"
#include "platform/services.h"

namespace brelmon {
namespace {

// At these sizes and below the window no longer lays itself out.
constexpr std::int32_t kSmallestWidth = 2000, kSmallestHeight = 2600;

}  // namespace

frmReport::frmReport() : Form(u"frmReport"), ReportControls(static_cast<Form&>(*this)) {
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCopy.Click = [this] { cmdCopy_Click(); };
  cmdPrint.Click = [this] { cmdPrint_Click(); };
}

void frmReport::Design() {
  Form::Design(u"Report", kDesignWidth, kDesignHeight, true);
  DesignControls();
}

Ref<IModelessFrame> frmReport::Frame() {
  return Guard::Top(u"Frame", [&] {
    if (!m_pFrame) {
      EnsureLoaded();  // so that the unload lets go of the frame
      const auto frame = HostObjects().NewModelessFrame();
      frame->Create(Ref<IObject>(shared_from_this()));
      frame->SetCaption(u"Report");
      m_pFrame = frame;
    }
    return m_pFrame;
  });
}

void frmReport::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    const auto whole = [](Twips margin) { return static_cast<std::int32_t>(margin); };
    margins_.BackgroundHeight = whole(Height() - txtBackground.Height());
    margins_.BackgroundWidth = whole(Width() - txtBackground.Width());
    margins_.ReportHeight = whole(Height() - txtReport.Height());
    margins_.ReportWidth = whole(Width() - txtReport.Width());
    margins_.OKTop = whole(Height() - cmdOK.Top());
    margins_.CopyTop = whole(Height() - cmdCopy.Top());
    margins_.PrintTop = whole(Height() - cmdPrint.Top());
    margins_.CornerTop = whole(Height() - imgCornerBars.Top());
    margins_.CornerLeft = whole(Width() - imgCornerBars.Left());
  });
}

void frmReport::Form_Resize() {
  Guard::Top(u"Form_Resize", [&] {
    if (!m_pFrame) return;  // the frame is only being made
    const auto position = m_pFrame.As<IWindowPosition>();
    const std::int32_t height = position->Height() * kTwipsPerPixel;
    const std::int32_t width = position->Width() * kTwipsPerPixel;
    if (width <= kSmallestWidth || height <= kSmallestHeight) return;
    const auto twips = [](std::int32_t size) { return static_cast<Twips>(size); };
    txtBackground.SetHeight(twips(height - margins_.BackgroundHeight));
    txtBackground.SetWidth(twips(width - margins_.BackgroundWidth));
    txtReport.SetHeight(twips(height - margins_.ReportHeight));
    txtReport.SetWidth(twips(width - margins_.ReportWidth));
    cmdOK.SetTop(twips(height - margins_.OKTop));
    cmdCopy.SetTop(twips(height - margins_.CopyTop));
    cmdPrint.SetTop(twips(height - margins_.PrintTop));
    imgCornerBars.SetTop(twips(height - margins_.CornerTop));
    imgCornerBars.SetLeft(twips(width - margins_.CornerLeft));
  });
}

void frmReport::Form_Unload() {
  Guard::Top(u"Form_Unload", [&] {
    if (!m_pFrame) return;
    m_pFrame->SetVisible(false);
    m_pFrame.Reset();  // frame and form hold each other
  });
}

void frmReport::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] { Frame()->SetVisible(false); });
}

void frmReport::cmdCopy_Click() {
  Guard::Top(u"cmdCopy_Click", [&] { CopyReport(); });
}

void frmReport::cmdPrint_Click() {
  Guard::Top(u"cmdPrint_Click", [&] { PrintReport(); });
}

}  // namespace brelmon
