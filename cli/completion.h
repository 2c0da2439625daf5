// SPDX-License-Identifier: GPL-2.0-or-later
// Names that a line at the prompt could go on with.
#pragma once

#include <string>
#include <vector>

#include "cli/session.h"

namespace brelmon::cli {

class Completer {
 public:
  explicit Completer(Session& session) : session_(session) {}
  /// `before` is the line up to the word at hand, `begun` what of it is typed, in quotes if
  /// `quoted`. Actions come first, then what they take: items, and fields behind an item that has
  /// some; classes; tabs.
  void Look(const std::string& before, const std::string& begun, bool quoted);
  /// As they are to be typed.
  const std::vector<std::string>& Found() const { return found_; }

 private:
  std::vector<std::string> Candidates(const std::vector<std::string>& words);
  Session& session_;
  std::vector<std::string> found_;
};

}  // namespace brelmon::cli
