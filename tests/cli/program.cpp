// SPDX-License-Identifier: GPL-2.0-or-later
// Spawning, with files for the three streams.
#include "tests/cli/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

extern char** environ;

namespace brelmon::cli::test {
namespace {

/// The test's environment without what would change the program's words.
std::vector<std::string> Environment() {
  std::vector<std::string> kept{"LC_ALL=C.UTF-8"};
  for (char** each = environ; *each != nullptr; ++each) {
    const std::string entry = *each;
    if (!entry.starts_with("LC_") && !entry.starts_with("BRELMON_")) kept.push_back(entry);
  }
  return kept;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

Said Brelmon(const std::vector<std::string>& arguments, const std::string& input) {
  const TempFolder streams;
  streams.Write("in", input);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const auto redirect = [&](int descriptor, const char* name, int flags) {
    posix_spawn_file_actions_addopen(&actions, descriptor, streams.Path(name).c_str(), flags, 0600);
  };
  redirect(STDIN_FILENO, "in", O_RDONLY);
  redirect(STDOUT_FILENO, "out", O_WRONLY | O_CREAT);
  redirect(STDERR_FILENO, "err", O_WRONLY | O_CREAT);
  std::vector<std::string> words{BRELMON_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  auto environment = Environment();
  pid_t child = 0;
  const int failed = posix_spawn(&child, BRELMON_PROGRAM, &actions, nullptr, Pointers(words).data(),
                                 Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) throw std::runtime_error("can't run " BRELMON_PROGRAM);
  int state = 0;
  ::waitpid(child, &state, 0);
  return {WIFEXITED(state) ? WEXITSTATUS(state) : 128, BytesOf(streams.Path("out")),
          BytesOf(streams.Path("err"))};
}

std::string Earth() { return BRELMON_SOURCE_DIR "/samples/earth"; }

EarthCopy::EarthCopy() {
  std::filesystem::copy(Earth(), Path(), std::filesystem::copy_options::recursive);
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace brelmon::cli::test
