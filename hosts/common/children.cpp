// SPDX-License-Identifier: GPL-2.0-or-later
// Programs are started from argument vectors: no shell ever reads a file's name.
#include "hosts/common/children.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/common/paths.h"

extern char** environ;

namespace brelmon::host {
namespace {

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

}  // namespace

Child::Child(pid_t number)
    : number_(number), end_(static_cast<int>(::syscall(SYS_pidfd_open, number, 0))) {}

Child::~Child() {
  if (end_ >= 0) ::close(end_);
}

bool Child::EndsWithin(int milliseconds) {
  pollfd end{end_, POLLIN, 0};
  if (end_ >= 0) ::poll(&end, 1, milliseconds);
  return Status().has_value();
}

std::optional<int> Child::Status() {
  int state = 0;
  if (!status_ && ::waitpid(number_, &state, WNOHANG) != 0) {
    status_ = WIFEXITED(state) ? WEXITSTATUS(state) : 128;
  }
  return status_;
}

std::shared_ptr<Child> Children::Spawn(const std::vector<std::string>& words,
                                       const std::string& folder) {
  std::erase_if(running_, [](const auto& child) { return child->Status().has_value(); });
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t number = 0;
  const Surroundings around(folder);
  if (::posix_spawnp(&number, arguments[0], around.Get(), nullptr, arguments.data(), environ) !=
      0) {
    return nullptr;
  }
  running_.push_back(std::make_shared<Child>(number));
  return running_.back();
}

}  // namespace brelmon::host
