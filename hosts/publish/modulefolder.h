// SPDX-License-Identifier: GPL-2.0-or-later
// The folder of a map document: which files lie in it, and what they are called elsewhere.
#pragma once

#include <optional>
#include <string>

#include "hosts/data/sourceaddress.h"

namespace brelmon::publish {

class ModuleFolder {
 public:
  /// System path of the map document.
  explicit ModuleFolder(const std::string& document);

  const std::string& Path() const { return path_; }
  /// Path inside of the module, with forward slashes; nothing for what lies elsewhere once links
  /// are followed, or in no file at all. An archive's content lies where the archive does.
  std::optional<std::string> Inside(const std::string& systemPath) const;
  /// What the tools in a page call a file of the module: "Z:\earth\data\quakes.shp". Of a file
  /// elsewhere its name alone is told.
  std::string Windows(const std::string& systemPath) const;
  /// A message without the paths of this system that lead to the module.
  std::string Purged(std::string message) const;

 private:
  std::string path_;  // as it was named
  std::string real_;  // links followed
};

/// The first of the files that this data is read from, parts and references included, that doesn't
/// lie in the module; nothing if they all do.
std::optional<std::string> FileOutside(const ModuleFolder& module,
                                       const data::SourceAddress& address);

}  // namespace brelmon::publish
