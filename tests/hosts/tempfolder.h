// SPDX-License-Identifier: GPL-2.0-or-later
// A folder of a test's own, gone when the test is.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace brelmon {

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "brelmonXXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string Path(const std::string& name = {}) const {
    return name.empty() ? path_ : path_ + "/" + name;
  }
  /// Writes a file, with the folders that lead to it. Gives its path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

 private:
  std::string path_;
};

/// The bytes of a file; empty where there is none.
inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace brelmon
