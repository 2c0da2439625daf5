// SPDX-License-Identifier: GPL-2.0-or-later
// brelmon [--yes|--no] [--now TIME] [--server HOST] MODULE [ACTION...]
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <new>

#include "cli/commandline.h"
#include "cli/prompt.h"
#include "cli/signals.h"
#include "cli/visibletext.h"

namespace {

int Run(const std::vector<std::string>& arguments) {
  using namespace brelmon::cli;
  const Front front = ParseFront(arguments);
  if (front.Ended) return *front.Ended;
  Line line;
  if (!front.Words.empty()) {
    line = ParseLine(front.Words);
    if (!line.Run) return line.Ended;
  }
  Session session(front.Module);
  return line.Run ? RunLine(session, line, front.Given, "") : RunSession(session, front.Given);
}

}  // namespace

int main(int argc, char** argv) {
  brelmon::cli::EndCleanlyAtSignals();
  const brelmon::cli::VisibleText out(std::cout), errors(std::cerr);
  int status = brelmon::cli::kFailed;
  try {
    status = Run({argv + 1, argv + argc});
  } catch (const std::bad_alloc&) {
    std::cerr << "brelmon: there is not enough memory" << std::endl;
  } catch (const std::exception& reason) {
    std::cerr << "brelmon: " << reason.what() << std::endl;
  }
  std::cout.flush();
  const bool written = static_cast<bool>(std::cout);
  if (std::fclose(stdout) == 0 && written) return status;
  std::cerr << "brelmon: the result could not be written out" << std::endl;
  return std::max<int>(status, brelmon::cli::kFailed);
}
