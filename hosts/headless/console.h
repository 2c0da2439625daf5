// SPDX-License-Identifier: GPL-2.0-or-later
// What a user would see and hear: boxes, the error dialog, the pointer, the clipboard.
#pragma once

#include <functional>
#include <ostream>

#include "platform/services.h"

namespace brelmon::headless {

/// UTF-8 with LF line ends, for a stream.
std::string ForStream(TextView text);

/// Prints boxes as "[Title] text" and answers them.
class ConsoleMessageBox : public IMessageBox {
 public:
  /// One of the answers of `box`; by default OK where there is nothing else, else Cancel or No.
  using Answer = std::function<int(const Text& text, int style, const Text& title)>;
  explicit ConsoleMessageBox(std::ostream& out) : out_(&out) {}
  void SetAnswer(Answer answer) { answer_ = std::move(answer); }
  void SetStream(std::ostream& out) { out_ = &out; }
  /// Boxes and error dialogs shown so far.
  int Shown() const { return shown_; }
  void CountErrorDialog() { ++shown_; }

  int Show(const Text& text, int style, const Text& title) override;
  void Beep() override;
  std::ostream& Stream() { return *out_; }

 private:
  std::ostream* out_;
  Answer answer_;
  int shown_ = 0;
};

/// Counts the error dialogs that are asked for while it lives; `quiet` keeps them from showing.
class QuietErrors {
 public:
  explicit QuietErrors(bool quiet);
  ~QuietErrors();
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;
  int Count() const;

 private:
  bool before_;
  int countBefore_;
};

/// What a button of the box of that style says when nobody answers.
int DefaultAnswer(int style);

/// Prints its text when it becomes visible.
Ref<IErrorDialog> NewErrorDialog(ConsoleMessageBox& console);

class RecordedScreen : public IScreen {
 public:
  void SetMousePointer(Pointer pointer) override { pointer_ = pointer; }
  Pointer MousePointer() const { return pointer_; }

 private:
  Pointer pointer_ = Pointer::Default;
};

class RecordedClipboard : public IClipboard {
 public:
  void Clear() override { text_.clear(); }
  void SetText(const Text& text) override { text_ = text; }
  const Text& Content() const { return text_; }

 private:
  Text text_;
};

}  // namespace brelmon::headless
