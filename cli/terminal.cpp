// SPDX-License-Identifier: GPL-2.0-or-later
// Terminals by file descriptor.
#include "cli/terminal.h"

#include <unistd.h>

#include <iostream>
#include <string>

namespace brelmon::cli {

bool AtTerminal() { return ::isatty(STDIN_FILENO) == 1 && ErrorsAtTerminal(); }

bool ErrorsAtTerminal() { return ::isatty(STDERR_FILENO) == 1; }

bool AskYesNo() {
  std::cerr << "[y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  std::cin.clear();  // an end of input here is a No, not the end of the session
  return answer == "y" || answer == "Y" || answer == "yes" || answer == "Yes";
}

}  // namespace brelmon::cli
