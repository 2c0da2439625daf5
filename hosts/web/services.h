// SPDX-License-Identifier: GPL-2.0-or-later
// What tools ask of any host, answered by the page.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "platform/application.h"
#include "platform/services.h"

namespace brelmon::web {

class MessageBoxes : public IMessageBox {
 public:
  int Show(const Text& text, int style, const Text& title) override;
  void Beep() override;
};

class Screen : public IScreen {
 public:
  void SetMousePointer(Pointer pointer) override;
};

class Clipboard : public IClipboard {
 public:
  void Clear() override {}
  void SetText(const Text& text) override;
};

/// Gathers a document and hands it to the browser's printing.
class Printer : public IPrinter {
 public:
  void SetFontSize(double points) override { points_ = points; }
  void Print(const Text& text) override { document_ += text + u"\n"; }
  void EndDoc() override;

 private:
  double points_ = 0;
  Text document_;
};

/// Opens published media, the page's own files and web addresses of http and https; anything else
/// fails with 5 and its reason.
class Shell : public IShell {
 public:
  /// `folder` is the module's system path, `media` what was published, by its path below it.
  Shell(std::string folder, std::set<std::string> media)
      : folder_(std::move(folder)), media_(std::move(media)) {}
  void Execute(const Text& file, const Text& directory, int showMode) override;
  void Run(const Text& program) override;
  bool GetUserName(Text&) override { return false; }

 private:
  std::string folder_;
  std::set<std::string> media_;
};

/// Gives way to the browser now and then, so that progress is seen. Escape ends a run: the next
/// step fails with 18.
class StatusBar : public IStatusBar {
 public:
  void ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                       std::int32_t step, bool onePanel) override;
  void StepProgressBar() override;
  void HideProgressBar() override;

 private:
  using Clock = std::chrono::steady_clock;
  void Show();
  void LookAtClock();
  Text message_;
  std::int32_t minimum_ = 0, maximum_ = 0, step_ = 1, position_ = 0;
  bool visible_ = false;
  Clock::time_point shown_, looked_;
  std::int32_t pause_ = 1, steps_ = 0;  // steps between two looks at the clock; since the last
};

/// Files under the module's folder and the temporary one, in memory. `written` is told each path
/// that was opened for writing, once it is closed.
std::unique_ptr<IFileSystem> NewFileSystem(std::function<void(const std::string&)> written);

Ref<IErrorDialog> NewErrorDialog();

}  // namespace brelmon::web
