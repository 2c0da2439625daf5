// SPDX-License-Identifier: GPL-2.0-or-later
// Services as messages to the page.
#include "hosts/web/services.h"

#include <algorithm>
#include <functional>

#include "hosts/common/filesystem.h"
#include "hosts/common/hostfailure.h"
#include "hosts/web/page.h"

namespace brelmon::web {
namespace {

class ErrorDialog : public IErrorDialog {
 public:
  void SetText(const Text& text) override { text_ = text; }
  void SetVisible(bool visible) override {
    Tell(Json().Begin().Put("what", "trail").Put("text", text_).Put("visible", visible).End());
  }

 private:
  Text text_;
};

/// A stream that tells when it is closed.
class WatchedStream : public IByteStream {
 public:
  WatchedStream(std::unique_ptr<IByteStream> inner, std::function<void()> closed)
      : inner_(std::move(inner)), closed_(std::move(closed)) {}
  ~WatchedStream() override {
    inner_.reset();
    closed_();
  }
  std::string Read(std::size_t size) override { return inner_->Read(size); }
  void Write(const std::string& bytes) override { inner_->Write(bytes); }
  void Close() override { inner_->Close(); }

 private:
  std::unique_ptr<IByteStream> inner_;
  std::function<void()> closed_;
};

class WatchedFiles : public IFileSystem {
 public:
  explicit WatchedFiles(std::function<void(const std::string&)> written)
      : written_(std::move(written)) {}
  std::int32_t Attributes(const Text& path) override { return inner_->Attributes(path); }
  std::unique_ptr<IByteStream> Open(const Text& path, FileMode mode) override {
    auto stream = inner_->Open(path, mode);
    if (mode == FileMode::Input) return stream;
    return std::make_unique<WatchedStream>(std::move(stream), [this, path] {
      if (const auto system = host::Paths().ToSystem(path)) written_(*system);
    });
  }
  Text FromTyped(const Text& typed) override { return inner_->FromTyped(typed); }
  std::int32_t GetLongPathName(const Text& path, Text& buffer) override {
    return inner_->GetLongPathName(path, buffer);
  }
  std::int32_t GetTempPath(Text& buffer) override { return inner_->GetTempPath(buffer); }

 private:
  std::unique_ptr<IFileSystem> inner_ = host::NewFileSystem();
  std::function<void(const std::string&)> written_;
};

/// "http" of "http://...": letters before a colon, but no drive.
std::string SchemeOf(const std::string& address) {
  const std::size_t colon = address.find(':');
  if (colon == std::string::npos || colon < 2) return {};
  std::string scheme = address.substr(0, colon);
  std::transform(scheme.begin(), scheme.end(), scheme.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return scheme;
}

}  // namespace

int MessageBoxes::Show(const Text& text, int style, const Text& title) {
  const int name = NextName();
  Tell(Json()
           .Begin()
           .Put("what", "box")
           .Put("name", name)
           .Put("text", text)
           .Put("style", std::int32_t{style})
           .Put("title", title)
           .End());
  return Wait(name);
}

void MessageBoxes::Beep() { Tell(Json().Begin().Put("what", "beep").End()); }

void Screen::SetMousePointer(Pointer pointer) {
  Tell(Json().Begin().Put("what", "pointer").Put("busy", pointer == Pointer::Hourglass).End());
}

void Clipboard::SetText(const Text& text) {
  Tell(Json().Begin().Put("what", "copy").Put("text", text).End());
}

void Printer::EndDoc() {
  Tell(Json().Begin().Put("what", "print").Put("text", document_).Put("points", points_).End());
  document_.clear();
}

void Shell::Execute(const Text& file, const Text& directory, int) {
  const std::string name = ToUtf8(file);
  if (name.empty()) return;
  const std::string scheme = SchemeOf(name);
  if (scheme == "http" || scheme == "https") {
    Tell(Json().Begin().Put("what", "open-address").Put("address", name).End());
    return;
  }
  if (!scheme.empty()) {
    host::Fail(failure::kInvalidCall, "A page opens no addresses of this kind: " + name);
  }
  const host::Paths paths;
  Text base = directory;
  if (!base.empty() && base.back() != u'\\') base += u'\\';
  auto system = paths.ToSystem(file);
  if (!system) system = paths.ToSystem(base + file);
  if (!system || !host::FileExists(*system)) {
    host::Fail(failure::kFileNotFound, "The module holds no file " + name);
  }
  const bool below = system->compare(0, folder_.size() + 1, folder_ + "/") == 0;
  const std::string inside = below ? system->substr(folder_.size() + 1) : "";
  if (media_.count(inside) != 0) {
    Tell(Json().Begin().Put("what", "open-media").Put("path", inside).End());
  } else {
    Tell(Json().Begin().Put("what", "open-file").Put("path", *system).End());
  }
}

void Shell::Run(const Text& program) {
  host::Fail(failure::kFileNotFound, "A page starts no programs: " + ToUtf8(program));
}

void StatusBar::ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                                std::int32_t step, bool) {
  message_ = message;
  minimum_ = position_ = minimum;
  maximum_ = maximum;
  step_ = step;
  visible_ = true;
  pause_ = 1;
  steps_ = 0;
  Show();
}

void StatusBar::StepProgressBar() {
  if (!visible_) return;
  position_ = position_ > maximum_ - step_ ? maximum_ : position_ + step_;
  if (++steps_ >= pause_) LookAtClock();
}

/// The clock is the browser's and dear, and a tool may step once for each of a million values: it
/// is looked at every few milliseconds.
void StatusBar::LookAtClock() {
  constexpr auto kBreath = std::chrono::milliseconds(100);
  constexpr auto kShort = std::chrono::milliseconds(2), kLong = std::chrono::milliseconds(8);
  constexpr std::int32_t kMostSteps = 1 << 20;
  const auto now = Clock::now();
  if (now - looked_ < kShort) pause_ = std::min(pause_ * 2, kMostSteps);
  if (now - looked_ > kLong) pause_ = std::max(pause_ / 4, 1);
  looked_ = now;
  steps_ = 0;
  if (now - shown_ < kBreath) return;
  Show();
  const int name = NextName();
  Tell(Json().Begin().Put("what", "breath").Put("name", name).End());
  if (Wait(name) != 0) host::Fail(failure::kUserInterrupt);
}

void StatusBar::HideProgressBar() {
  visible_ = false;
  Show();
}

void StatusBar::Show() {
  shown_ = Clock::now();
  Tell(Json()
           .Begin()
           .Put("what", "progress")
           .Put("message", message_)
           .Put("minimum", minimum_)
           .Put("maximum", maximum_)
           .Put("position", position_)
           .Put("visible", visible_)
           .End());
}

std::unique_ptr<IFileSystem> NewFileSystem(std::function<void(const std::string&)> written) {
  return std::make_unique<WatchedFiles>(std::move(written));
}

Ref<IErrorDialog> NewErrorDialog() { return New<ErrorDialog>(); }

}  // namespace brelmon::web
