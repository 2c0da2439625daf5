// SPDX-License-Identifier: GPL-2.0-or-later
// Rich text.
#pragma once

#include <vector>

#include "toolkit/form.h"

namespace brelmon {

/// Rich text that is read, not edited.
class RichTextBox : public Control {
 public:
  RichTextBox(Form& owner, Text name) : Control(owner, ControlKind::RichTextBox, std::move(name)) {}
  /// One stretch of text with its font and indent in twips; a line end ends a paragraph.
  struct Run {
    brelmon::Text Text;
    brelmon::Font Font;
    Twips Indent = 0;
  };
  const std::vector<Run>& Runs() { return Loaded(runs_); }
  void SetRuns(std::vector<Run> runs);
  brelmon::Text PlainText();

 protected:
  void ResetDesign() override;
  brelmon::Text DumpOwn() override;

 private:
  std::vector<Run> runs_;
};

}  // namespace brelmon
