// SPDX-License-Identifier: GPL-2.0-or-later
// From the program on.
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
  return (program / BRELMON_PAGE).lexically_normal().string();
}

}  // namespace brelmon::cli
