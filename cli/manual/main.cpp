// SPDX-License-Identifier: GPL-2.0-or-later
// Writes the page of the manual and the completions:
// brelmon_manual VERSION PAGE BASH ZSH
#include "cli/commandline.h"
#include "cli/manual/manual.h"

#include <fstream>
#include <iostream>

namespace {

bool Write(const char* file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text << std::flush;
  if (!out) std::cerr << "can't write " << file << std::endl;
  return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace brelmon::cli;
  if (argc != 5) return 2;
  const ActionText program = WholeText();
  const bool written = Write(argv[2], ManualPage(program, argv[1])) &&
                       Write(argv[3], BashCompletion(program)) &&
                       Write(argv[4], ZshCompletion(program));
  return written ? 0 : 1;
}
