// SPDX-License-Identifier: GPL-2.0-or-later
// Beside the program, or where things were built.
#include "cli/library.h"

#include <cstdlib>
#include <filesystem>

namespace brelmon::cli {

namespace {

namespace fs = std::filesystem;

std::string Given(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

fs::path ProgramFolder() {
  std::error_code none;
  return fs::read_symlink("/proc/self/exe", none).parent_path();
}

}  // namespace

std::string ComponentFile() {
  const std::string given = Given("BRELMON_COMPONENT");
  if (!given.empty()) return given;
  const fs::path built(BRELMON_COMPONENT_FILE);
  const fs::path folder = ProgramFolder();
  std::error_code none;
  for (const fs::path& place : {folder, folder.parent_path() / "lib"}) {
    if (fs::exists(place / built.filename(), none)) return (place / built.filename()).string();
  }
  return built.string();
}

std::string PageFolder() {
  const std::string given = Given("BRELMON_WEB");
  if (!given.empty()) return given;
  const fs::path installed = ProgramFolder().parent_path() / "share" / "brelmon-tools" / "web";
  std::error_code none;
  return fs::is_directory(installed, none) ? installed.string() : BRELMON_PAGE_FOLDER;
}

}  // namespace brelmon::cli
