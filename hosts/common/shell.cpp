// SPDX-License-Identifier: GPL-2.0-or-later
// Programs are started from argument vectors: no shell ever reads a file's name.
#include "hosts/common/shell.h"

#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "hosts/common/hostfailure.h"

extern char** environ;

namespace brelmon::host {
namespace {

/// Programs that were started, so that none stays behind as a zombie.
class Children {
 public:
  /// Starts a program that goes on by itself; false where it can't be started.
  bool Spawn(const std::vector<std::string>& words);

 private:
  std::vector<pid_t> running_;
};

bool Children::Spawn(const std::vector<std::string>& words) {
  std::erase_if(running_, [](pid_t child) { return ::waitpid(child, nullptr, WNOHANG) != 0; });
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t child = 0;
  if (::posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0) {
    return false;
  }
  running_.push_back(child);
  return true;
}

bool IsWebAddress(TextView file) {
  const std::size_t colon = file.find(u':');
  return colon != TextView::npos && colon > 1 &&
         file.substr(0, colon).find(u'\\') == TextView::npos;
}

class SystemShell : public IShell {
 public:
  explicit SystemShell(Paths paths) : paths_(std::move(paths)) {}

  void Execute(const Text& file, const Text& directory, int) override {
    if (file.empty()) return;
    const std::string folder = paths_.ToSystem(directory).value_or("");
    std::string target = IsWebAddress(file) ? ToUtf8(file) : SystemFile(file, directory);
    const char* opener = std::getenv("BRELMON_OPENER");
    if (opener != nullptr && *opener != '\0') {
      children_.Spawn({opener, target, folder});
    } else if (!target.empty() && target[0] != '-') {  // never an option
      children_.Spawn({"xdg-open", target});
    }
  }

  void Run(const Text& program) override {
    const auto system = paths_.ToSystem(program);
    if (!system || !FileExists(*system)) Fail(failure::kFileNotFound);
    if (::access(system->c_str(), X_OK) != 0 || !children_.Spawn({*system}))
      Fail(failure::kInvalidCall);
  }

  bool GetUserName(Text& name) override {
    const passwd* entry = ::getpwuid(::getuid());
    if (entry == nullptr) return false;
    name = FromUtf8(entry->pw_name) + u'\0';
    return true;
  }

 private:
  /// A relative file is one of `directory`; what is no path at all goes out as it is.
  std::string SystemFile(const Text& file, const Text& directory) const {
    if (const auto whole = paths_.ToSystem(file)) return *whole;
    Text base = directory;
    if (!base.empty() && base.back() != u'\\' && base.back() != u'/') base += u'\\';
    return paths_.ToSystem(base + file).value_or(ToUtf8(file));
  }

  Paths paths_;
  Children children_;
};

}  // namespace

std::unique_ptr<IShell> NewShell(Paths paths) {
  return std::make_unique<SystemShell>(std::move(paths));
}

}  // namespace brelmon::host
