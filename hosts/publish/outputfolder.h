// SPDX-License-Identifier: GPL-2.0-or-later
// A folder that appears whole or not at all.
#pragma once

#include <functional>
#include <string>

namespace brelmon::publish {

/// Stands under a passing name beside its place until Commit; without that nothing is left of it.
/// Names are paths inside, with forward slashes. Throws std::runtime_error with the reason.
class OutputFolder {
 public:
  /// `folder` is not there, empty, or an earlier publication and nothing else; else it is refused.
  /// With `single` whatever a page fetches is a script. `stopped` is asked before each file and may
  /// be unset.
  OutputFolder(const std::string& folder, bool single, std::function<bool()> stopped);
  ~OutputFolder();
  OutputFolder(const OutputFolder&) = delete;
  OutputFolder& operator=(const OutputFolder&) = delete;

  /// Where a file is to be written; the folders that lead there are made.
  std::string PathFor(const std::string& name) const;
  void Put(const std::string& name, const std::string& bytes) const;
  void Copy(const std::string& name, const std::string& from) const;
  /// Of a file that is written and that the page fetches: puts a script in its place if it must be
  /// one.
  void Fetched(const std::string& name) const;
  bool Single() const { return single_; }
  /// Fails once it was asked to stop.
  void CheckStopped() const;

  /// Takes the place of what was there in one step.
  void Commit();

 private:
  std::string folder_, passing_;
  bool single_;
  std::function<bool()> stopped_;
};

/// Throws std::runtime_error where a file can't be read to its end.
std::string BytesOfFile(const std::string& path);

}  // namespace brelmon::publish
