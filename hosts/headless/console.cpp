// SPDX-License-Identifier: GPL-2.0-or-later
// Boxes on a stream.
#include "hosts/headless/console.h"

#include "hosts/columns/emptyvalue.h"

namespace brelmon::headless {
namespace {

// The tools keep one error dialog for the process.
bool quietNow = false;
int timesAsked = 0;

class ConsoleErrorDialog : public IErrorDialog {
 public:
  explicit ConsoleErrorDialog(ConsoleMessageBox& console) : console_(console) {}
  void SetText(const Text& text) override { text_ = text; }
  void SetVisible(bool visible) override {
    if (!visible) return;
    ++timesAsked;
    if (quietNow) return;
    console_.CountErrorDialog();
    console_.Stream() << ForStream(columns::WithEmptyValue(text_)) << std::endl;
    columns::ForgetEmptyValue();
  }

 private:
  ConsoleMessageBox& console_;
  Text text_;
};

}  // namespace

QuietErrors::QuietErrors(bool quiet) : before_(quietNow), countBefore_(timesAsked) {
  quietNow = quiet;
}
QuietErrors::~QuietErrors() { quietNow = before_; }
int QuietErrors::Count() const { return timesAsked - countBefore_; }

std::string ForStream(TextView text) {
  std::string lines;
  std::string utf8 = ToUtf8(text);
  if (utf8.find('\r') == std::string::npos) return utf8;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (utf8[i] != '\r') {
      lines += utf8[i];
    } else if (i + 1 == utf8.size() || utf8[i + 1] != '\n') {
      lines += '\n';
    }
  }
  return lines;
}

int DefaultAnswer(int style) {
  constexpr int kButtons = 7;
  switch (style & kButtons) {
    case box::kOkCancel:
      return box::kAnswerCancel;
    case box::kYesNo:
      return box::kAnswerNo;
    default:
      return box::kAnswerOk;
  }
}

int ConsoleMessageBox::Show(const Text& text, int style, const Text& title) {
  ++shown_;
  *out_ << '[' << ForStream(title) << "] " << ForStream(text) << std::endl;
  return answer_ ? answer_(text, style, title) : DefaultAnswer(style);
}

void ConsoleMessageBox::Beep() { *out_ << '\a' << std::flush; }

Ref<IErrorDialog> NewErrorDialog(ConsoleMessageBox& console) {
  return New<ConsoleErrorDialog>(console);
}

}  // namespace brelmon::headless
