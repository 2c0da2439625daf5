// SPDX-License-Identifier: GPL-2.0-or-later
// Rich text: runs of text with a font and an indent each.
#include "toolkit/richtextbox.h"
#include "toolkit/dump.h"

namespace brelmon {

void RichTextBox::SetRuns(std::vector<Run> runs) {
  Touch();
  runs_ = std::move(runs);
  Changed(Aspect::Value);
}

brelmon::Text RichTextBox::PlainText() {
  Touch();
  brelmon::Text text;
  for (const Run& run : runs_) text += run.Text;
  return text;
}

void RichTextBox::ResetDesign() {
  Control::ResetDesign();
  runs_.clear();
}

brelmon::Text RichTextBox::DumpOwn() {
  brelmon::Text own = u" runs=" + dump::Number(static_cast<double>(runs_.size()));
  for (std::size_t i = 0; i < runs_.size(); ++i) {
    own += i == 0 ? u": " : u", ";
    if (const auto font = dump::FontText(runs_[i].Font); !font.empty()) own += u"[" + font + u"] ";
    if (runs_[i].Indent != 0) own += u"indent=" + dump::Number(runs_[i].Indent) + u" ";
    own += dump::Quoted(runs_[i].Text);
  }
  return own;
}

}  // namespace brelmon
