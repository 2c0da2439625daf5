// SPDX-License-Identifier: GPL-2.0-or-later
// What an author is told of a publication, a line each.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace brelmon::publish {

class Report {
 public:
  /// `subject` is a layer's name or a path in the module. The same line is told once.
  void Add(const std::string& subject, const std::string& text) {
    std::string line = subject + ": " + text;
    if (std::find(lines_.begin(), lines_.end(), line) == lines_.end()) {
      lines_.push_back(std::move(line));
    }
  }
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

}  // namespace brelmon::publish
