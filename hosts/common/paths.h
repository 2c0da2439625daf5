// SPDX-License-Identifier: GPL-2.0-or-later
// Windows paths for files of this system: drive Z: is the root, C:\Users\NAME also the home.
#pragma once

#include <optional>
#include <string>

#include "platform/text.h"

namespace brelmon::host {

/// Who the paths under C:\Users belong to.
struct PathOwner {
  std::string home;  // absolute, without a closing slash
  Text user;
  /// The user of this process.
  static PathOwner Current();
};

class Paths {
 public:
  explicit Paths(PathOwner owner = PathOwner::Current()) : owner_(std::move(owner)) {}

  /// "Z:\srv\modules" for "/srv/modules". Takes an absolute path in UTF-8.
  Text ToWindows(const std::string& systemPath) const;
  /// The system path of an absolute path on a drive that is there, whether or not the file is;
  /// nothing for any other text. Names are found regardless of case where the case given is not
  /// there; what isn't there at all stays as it was written.
  std::optional<std::string> ToSystem(TextView windowsPath) const;

 private:
  PathOwner owner_;
};

/// `path` with each component in the case in which it stands on the disk, "." and ".." resolved
/// by their letters. The first name in code order wins where several differ only in case.
std::string TrueCase(const std::string& path);

bool FileExists(const std::string& systemPath);
bool FolderExists(const std::string& systemPath);

}  // namespace brelmon::host
