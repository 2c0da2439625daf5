// SPDX-License-Identifier: GPL-2.0-or-later
// Beside the program, or where things were built.
#include "cli/pagefolder.h"

#include <cstdlib>
#include <filesystem>

namespace brelmon::cli {

std::string PageFolder() {
  namespace fs = std::filesystem;
  const char* given = std::getenv("BRELMON_WEB");
  if (given != nullptr && *given != '\0') return given;
  std::error_code none;
  const fs::path program = fs::read_symlink("/proc/self/exe", none).parent_path();
  const fs::path installed = program.parent_path() / "share" / "brelmon-tools" / "web";
  return fs::is_directory(installed, none) ? installed.string() : BRELMON_PAGE_FOLDER;
}

}  // namespace brelmon::cli
