// SPDX-License-Identifier: GPL-2.0-or-later
// Runs the built program and collects what it says.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace brelmon::cli::test {

struct Said {
  int status = -1;
  std::string out, err;
};

/// English, whatever the environment says. `input` is its standard input.
Said Brelmon(const std::vector<std::string>& arguments, const std::string& input = {});

/// The module of the samples, read only.
std::string Earth();
std::string ReadFile(const std::string& path);

/// A folder of its own, gone with it.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  const std::filesystem::path& Path() const { return path_; }
  std::string At(const std::string& name) const { return (path_ / name).string(); }
  void Write(const std::string& name, const std::string& bytes) const;

 private:
  std::filesystem::path path_;
};

/// A copy of the sample module, to be changed.
class EarthCopy : public Folder {
 public:
  EarthCopy();
};

bool Contains(const std::string& text, const std::string& part);

}  // namespace brelmon::cli::test
