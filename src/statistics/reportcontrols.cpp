// SPDX-License-Identifier: GPL-2.0-or-later
// Controls of the report windows, and the wrapping of printed lines.
#include "statistics/reportcontrols.h"

#include <algorithm>

#include "forms/pictures.h"
#include "platform/services.h"

namespace brelmon {
namespace {

constexpr std::size_t kLineLength = 70;
constexpr double kPrintPoints = 12;

bool IsBreak(TextView text, std::size_t position) {
  return position <= text.size() && (text[position - 1] == u' ' || text[position - 1] == u'-');
}

/// Behind which position from 1 to break the line that begins behind `start`.
std::size_t BreakAfter(TextView text, std::size_t start) {
  std::size_t at = start + kLineLength;
  while (at > start && !IsBreak(text, at)) --at;
  return at > start ? at : start + kLineLength;
}

}  // namespace

Text WrapForPrint(const Text& text) {
  // Positions count from 1 in `text`; with the line ends inserted so far, `pos` stands two a break
  // further on, and it is there that it is compared with the text's length before any.
  Text wrapped;
  std::size_t taken = 0, inserted = 0;
  const auto lineEnd = [&](std::size_t from) {
    const auto hit = text.find(kCrLf, from - 1);
    return hit == Text::npos ? 0 : hit + 1;
  };
  std::size_t next = lineEnd(1);
  std::size_t pos = next == 0 || next >= kLineLength ? kLineLength : next;
  std::size_t from = pos;  // where the search for a line end goes on
  while (text.size() > pos + inserted) {
    if (next != 0 && next < from) next = lineEnd(from);
    if (next != 0 && next < pos + kLineLength) {
      pos = next + 1;  // on the line feed
    } else {
      pos = BreakAfter(text, pos);
      const std::size_t end = std::min(pos, text.size());
      wrapped.append(text, taken, end - taken).append(kCrLf);
      taken = end;
      inserted += kCrLf.size();
    }
    from = pos + 1;
  }
  return wrapped.append(text, taken, Text::npos);
}

ReportControls::ReportControls(Form& owner)
    : txtBackground(owner, u"txtBackground"),
      txtReport(owner, u"txtReport"),
      cmdOK(owner, u"cmdOK"),
      cmdCopy(owner, u"cmdCopy"),
      cmdPrint(owner, u"cmdPrint"),
      imgCornerBars(owner, u"imgCornerBars") {}

void ReportControls::DesignControls() {
  txtBackground.Move(120, 120, 6960, 4665);
  txtBackground.SetLocked(true);
  txtBackground.SetTabStop(false);
  txtReport.Move(180, 180, 6840, 4545);
  txtReport.SetMultiLine(true);
  txtReport.SetFont({.Name = u"MS Sans Serif", .Size = 9.75});
  txtReport.SetToolTipText(u"Report");
  cmdOK.SetCaption(u"&Exit");
  cmdOK.Move(120, 4905, 1095, 375);
  cmdOK.SetCancel(true);
  cmdCopy.SetCaption(u"&Copy to Clipboard");
  cmdCopy.Move(1335, 4905, 2055, 375);
  cmdPrint.SetCaption(u"&Print");
  cmdPrint.Move(3510, 4905, 1095, 375);
  imgCornerBars.Move(kDesignWidth - 225, kDesignHeight - 225, 225, 225);
  imgCornerBars.SetPicture(CornerBars());
}

void ReportControls::CopyReport() {
  Clipboard().Clear();
  Clipboard().SetText(txtReport.Text());
  cmdOK.SetFocus();
}

void ReportControls::PrintReport() {
  const Text wrapped = WrapForPrint(txtReport.Text());
  Printer().SetFontSize(kPrintPoints);
  Printer().Print(wrapped);
  Printer().Print(Text());
  Printer().EndDoc();
  cmdOK.SetFocus();
}

}  // namespace brelmon
