// SPDX-License-Identifier: GPL-2.0-or-later
// Places of the component's library.
#include "cli/library.h"

#include <cstdlib>
#include <filesystem>

namespace brelmon::cli {

std::string ComponentFile() {
  namespace fs = std::filesystem;
  if (const char* given = std::getenv("BRELMON_COMPONENT"); given != nullptr && *given != '\0') {
    return given;
  }
  const fs::path built(BRELMON_COMPONENT_FILE);
  std::error_code none;
  const fs::path folder = fs::read_symlink("/proc/self/exe", none).parent_path();
  for (const fs::path& place : {folder, folder.parent_path() / "lib"}) {
    if (fs::exists(place / built.filename(), none)) return (place / built.filename()).string();
  }
  return built.string();
}

}  // namespace brelmon::cli
