// SPDX-License-Identifier: GPL-2.0-or-later
// What a file or an address is opened with.
#include "hosts/common/shell.h"

#include <pwd.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

#include "hosts/common/children.h"
#include "hosts/common/hostfailure.h"
#include "hosts/common/mediapolicy.h"

namespace brelmon::host {
namespace {

bool IsDigit(char unit) { return unit >= '0' && unit <= '9'; }

/// Whether a text begins with a scheme; a drive's letter is none, nor is a server before its port.
bool HasScheme(const std::string& text) {
  const std::size_t colon = text.find(':');
  return colon != std::string::npos && colon > 1 && text.find_first_of("\\/.") > colon &&
         !IsDigit((text + " ")[colon + 1]);
}

/// A text that stands in no directory and is no path of this system.
std::string WebAddress(const std::string& text) {
  return HasScheme(text) ? text : "http://" + text;
}

/// The address that a shortcut file holds; empty where it holds none of the web.
std::string AddressIn(const std::string& shortcut) {
  std::ifstream file(shortcut);
  for (std::string line; std::getline(file, line);) {
    if (!EqualNoCase(FromUtf8(line.substr(0, 4)), u"URL=")) continue;
    const std::string address = line.substr(4, line.find_last_not_of(" \t\r") - 3);
    for (const TextView scheme : {u"http://", u"https://", u"ftp://", u"mailto:"}) {
      if (FindNoCase(FromUtf8(address), Text(scheme)) == 0) return address;
    }
  }
  return {};
}

bool IsShortcut(const std::string& file) {
  return file.size() > 4 && EqualNoCase(FromUtf8(file.substr(file.size() - 4)), u".url");
}

/// A relative file is one of `directory`; what is no path at all goes out as it is.
std::string SystemFile(const Text& file, const Text& directory, const Paths& paths) {
  if (const auto whole = paths.ToSystem(file)) return *whole;
  Text base = directory;
  if (!base.empty() && base.back() != u'\\' && base.back() != u'/') base += u'\\';
  return paths.ToSystem(base + file).value_or(ToUtf8(file));
}

int DigitOf(char unit) {
  if (IsDigit(unit)) return unit - '0';
  const char low = static_cast<char>(unit | 0x20);
  return low >= 'a' && low <= 'f' ? low - 'a' + 10 : -1;
}

/// The system path of "file:///Z:/srv/a%20b.html"; nothing for any other text.
std::optional<std::string> PathOfUrl(const std::string& url, const Paths& paths) {
  constexpr std::string_view kHead = "file:///";
  if (!url.starts_with(kHead)) return std::nullopt;
  std::string path;
  for (std::size_t i = kHead.size(); i < url.size(); ++i) {
    char unit = url[i];
    if (unit == '%' && i + 2 < url.size()) {
      const int high = DigitOf(url[i + 1]), low = DigitOf(url[i + 2]);
      if (high < 0 || low < 0) return std::nullopt;
      unit = static_cast<char>(high * 16 + low);
      i += 2;
    }
    path += unit == '/' ? '\\' : unit;
  }
  return paths.ToSystem(FromUtf8(path));
}

std::string Allowed(std::string target) {
  const std::string refusal = RefusalToOpen(target);
  if (!refusal.empty()) Fail(failure::kRefused, refusal);
  return target;
}

/// A program that fails later than this had something open.
constexpr auto kAtOnce = std::chrono::seconds(10);

class StartedOpening : public Opening {
 public:
  StartedOpening(std::shared_ptr<Child> child, std::string target)
      : child_(std::move(child)), target_(std::move(target)) {}
  int EndDescriptor() const override { return child_->EndDescriptor(); }
  bool EndsWithin(int milliseconds) override { return child_->EndsWithin(milliseconds); }
  Text Complaint() override {
    const bool bad = child_->Status().value_or(0) != 0;
    if (!bad || std::chrono::steady_clock::now() - started_ > kAtOnce) return {};
    return FromUtf8(target_) +
           u" was not opened. This computer seems to have no program for it, or the program failed "
           u"at once.";
  }

 private:
  std::shared_ptr<Child> child_;
  std::string target_;
  std::chrono::steady_clock::time_point started_ = std::chrono::steady_clock::now();
};

class SystemShell : public IShell {
 public:
  SystemShell(Paths paths, OpeningWatch watch)
      : paths_(std::move(paths)), watch_(std::move(watch)) {}

  void Execute(const Text& file, const Text& directory, int) override {
    if (file.empty()) return;
    const std::string folder = paths_.ToSystem(directory).value_or("");
    const std::string target = TargetOf(file, directory, paths_);
    const char* named = std::getenv("BRELMON_OPENER");
    const bool own = named != nullptr && *named != '\0';
    const std::string opener = own ? named : "xdg-open";
    std::vector<std::string> words{opener, target};
    if (own) words.push_back(folder);
    auto child = children_.Spawn(words, folder);
    if (!child) {
      Fail(failure::kRefused,
           target + " is not opened: the program " + opener + " can't be started.");
    }
    if (watch_) watch_(std::make_unique<StartedOpening>(std::move(child), target));
  }

  void Run(const Text& program) override {
    const auto system = paths_.ToSystem(program);
    if (!system || !FileExists(*system)) Fail(failure::kFileNotFound);
    if (::access(system->c_str(), X_OK) != 0 || !children_.Spawn({*system}, {})) {
      Fail(failure::kInvalidCall);
    }
  }

  bool GetUserName(Text& name) override {
    const passwd* entry = ::getpwuid(::getuid());
    if (entry == nullptr) return false;
    name = FromUtf8(entry->pw_name) + u'\0';
    return true;
  }

 private:
  Paths paths_;
  OpeningWatch watch_;
  Children children_;
};

}  // namespace

std::string TargetOf(const Text& file, const Text& directory, const Paths& paths) {
  const std::string written = ToUtf8(file);
  if (const auto path = PathOfUrl(written, paths)) return Allowed(*path);
  if (HasScheme(written)) return Allowed(written);
  if (directory.empty() && !paths.ToSystem(file)) return Allowed(WebAddress(written));
  const std::string target = Allowed(SystemFile(file, directory, paths));
  if (!IsShortcut(target)) return target;
  const std::string address = AddressIn(target);
  if (address.empty()) Fail(failure::kRefused, "The shortcut " + written + " names no web page.");
  return Allowed(address);
}

std::unique_ptr<IShell> NewShell(OpeningWatch watch, Paths paths) {
  return std::make_unique<SystemShell>(std::move(paths), std::move(watch));
}

}  // namespace brelmon::host
