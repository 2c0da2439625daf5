// SPDX-License-Identifier: GPL-2.0-or-later
// Making, filling and exchanging folders.
#include "hosts/publish/outputfolder.h"

#include <cpl_string.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "hosts/publish/earlierpublication.h"
#include "hosts/publish/json.h"

namespace brelmon::publish {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw std::runtime_error(path + ": " + reason);
}

/// Absolute, links followed, without a closing slash.
std::string PlaceOf(const std::string& folder) {
  std::error_code error;
  fs::path place = fs::weakly_canonical(fs::absolute(folder), error);
  if (error) Refuse(folder, error.message());
  if (!place.has_filename()) place = place.parent_path();
  if (place.filename().empty()) Refuse(folder, "nothing can be published there");
  return place.string();
}

void CheckPlace(const std::string& folder, const std::string& place) {
  std::error_code error;
  const fs::file_status status = fs::status(place, error);
  if (!fs::exists(status)) {
    if (!fs::is_directory(fs::path(place).parent_path(), error)) {
      Refuse(folder, "there is no folder for it to stand in");
    }
    return;
  }
  if (!fs::is_directory(status)) Refuse(folder, "it is a file, no folder");
  const std::string other = OtherThingIn(place);
  if (!other.empty()) {
    Refuse(folder, "the folder holds " + other + ", which no publication put there; name another");
  }
}

/// As the system would have made it: others may read.
void OpenToOthers(const std::string& folder) {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::chmod(folder.c_str(), 0777 & ~mask);
}

std::string Base64(const std::string& bytes) {
  constexpr std::size_t kLargest = std::size_t{1} << 30;  // a text of a browser's script
  if (bytes.size() > kLargest) throw std::runtime_error("a file is too large for a script");
  char* text =
      CPLBase64Encode(static_cast<int>(bytes.size()), reinterpret_cast<const GByte*>(bytes.data()));
  std::string base64 = text;
  CPLFree(text);
  return base64;
}

}  // namespace

std::string BytesOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  std::string bytes(file.is_open() ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
  file.seekg(0);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) Refuse(path, "it can't be read");
  return bytes;
}

OutputFolder::OutputFolder(const std::string& folder, bool single, std::function<bool()> stopped)
    : folder_(PlaceOf(folder)), single_(single), stopped_(std::move(stopped)) {
  CheckPlace(folder, folder_);
  const fs::path place(folder_);
  passing_ = (place.parent_path() / ("." + place.filename().string() + "-XXXXXX")).string();
  if (::mkdtemp(passing_.data()) == nullptr) {
    const std::string reason = std::strerror(errno);
    passing_.clear();
    Refuse(folder, reason);
  }
  OpenToOthers(passing_);
}

OutputFolder::~OutputFolder() {
  std::error_code ignored;
  if (!passing_.empty()) fs::remove_all(passing_, ignored);
}

void OutputFolder::CheckStopped() const {
  if (stopped_ && stopped_())
    throw std::runtime_error("publishing was stopped; nothing is changed");
}

std::string OutputFolder::PathFor(const std::string& name) const {
  CheckStopped();
  const fs::path path = fs::path(passing_) / name;
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (error) Refuse(name, error.message());
  return path.string();
}

void OutputFolder::Put(const std::string& name, const std::string& bytes) const {
  std::ofstream file(PathFor(name), std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) Refuse(name, "it can't be written");
}

void OutputFolder::Copy(const std::string& name, const std::string& from) const {
  std::ifstream in(from, std::ios::binary);
  if (!in.is_open()) Refuse(from, "it can't be read");
  std::ofstream out(PathFor(name), std::ios::binary);
  // Nothing is put out of an empty file, which is no fault.
  if (in.peek() != std::ifstream::traits_type::eof()) out << in.rdbuf();
  out.close();
  if (in.bad() || !out) Refuse(name, "it can't be copied");
}

void OutputFolder::Fetched(const std::string& name) const {
  if (!single_) return;
  const std::string path = PathFor(name);
  const std::string base64 = Base64(BytesOfFile(path));
  Put(name + ".js", "brelmonFile(" + TextOf(Json(name)) + ", \"" + base64 + "\");\n");
  fs::remove(path);
}

void OutputFolder::Commit() {
  const char* from = passing_.c_str();
  const char* to = folder_.c_str();
  CheckStopped();
  CheckPlace(folder_, folder_);
  std::error_code error;
  if (!fs::exists(folder_, error)) {
    if (::rename(from, to) != 0) Refuse(folder_, std::strerror(errno));
    passing_.clear();
    return;
  }
  // What was there has the passing name afterwards and goes with it.
  if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_EXCHANGE) == 0) return;
  const std::string old = passing_ + "-old";
  if (::rename(to, old.c_str()) != 0) Refuse(folder_, std::strerror(errno));
  if (::rename(from, to) != 0) {
    const std::string reason = std::strerror(errno);
    ::rename(old.c_str(), to);
    Refuse(folder_, reason);
  }
  passing_ = old;
}

}  // namespace brelmon::publish
