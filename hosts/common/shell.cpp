// SPDX-License-Identifier: GPL-2.0-or-later
// Programs are started from argument vectors: no shell ever reads a file's name.
#include "hosts/common/shell.h"

#include <fcntl.h>
#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

#include "hosts/common/hostfailure.h"
#include "hosts/common/mediapolicy.h"

extern char** environ;

namespace brelmon::host {
namespace {

/// Programs that were started, so that none stays behind as a zombie.
class Children {
 public:
  /// Starts a program that goes on by itself, in `folder` where that is there; false where it can't
  /// be started. A session's lines on standard input are not for it.
  bool Spawn(const std::vector<std::string>& words, const std::string& folder);

 private:
  std::vector<pid_t> running_;
};

/// Where a program's standard input and its working directory are.
class Surroundings {
 public:
  explicit Surroundings(const std::string& folder) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (FolderExists(folder)) ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
  }
  ~Surroundings() { ::posix_spawn_file_actions_destroy(&actions_); }
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

bool Children::Spawn(const std::vector<std::string>& words, const std::string& folder) {
  std::erase_if(running_, [](pid_t child) { return ::waitpid(child, nullptr, WNOHANG) != 0; });
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t child = 0;
  const Surroundings around(folder);
  if (::posix_spawnp(&child, arguments[0], around.Get(), nullptr, arguments.data(), environ) != 0) {
    return false;
  }
  running_.push_back(child);
  return true;
}

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

class SystemShell : public IShell {
 public:
  explicit SystemShell(Paths paths) : paths_(std::move(paths)) {}

  void Execute(const Text& file, const Text& directory, int) override {
    if (file.empty()) return;
    const std::string folder = paths_.ToSystem(directory).value_or("");
    const std::string target = TargetOf(file, directory, paths_);
    const char* named = std::getenv("BRELMON_OPENER");
    const bool own = named != nullptr && *named != '\0';
    const std::string opener = own ? named : "xdg-open";
    std::vector<std::string> words{opener, target};
    if (own) words.push_back(folder);
    if (!children_.Spawn(words, folder)) {
      Fail(failure::kRefused,
           target + " is not opened: the program " + opener + " can't be started.");
    }
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

std::unique_ptr<IShell> NewShell(Paths paths) {
  return std::make_unique<SystemShell>(std::move(paths));
}

}  // namespace brelmon::host
