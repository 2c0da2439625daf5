// SPDX-License-Identifier: GPL-2.0-or-later
// Between the tools and the desktop: what they open is noted, and opened only where told to.
#pragma once

#include <string>
#include <vector>

#include "platform/services.h"

namespace brelmon::cli {

class HeldShell : public IShell {
 public:
  explicit HeldShell(IShell& real) : real_(real) {}

  /// Begins anew; with `opens` what comes is passed on, too.
  void Hold(bool opens) {
    opens_ = opens;
    asked_.clear();
  }
  /// What was opened, or would have been: web addresses, and system paths where the tools gave a
  /// file of this system; nothing that was refused. UTF-8.
  const std::vector<std::string>& Asked() const { return asked_; }

  void Execute(const Text& file, const Text& directory, int showMode) override;
  void Run(const Text& program) override;
  bool GetUserName(Text& name) override { return real_.GetUserName(name); }

 private:
  IShell& real_;
  bool opens_ = false;
  std::vector<std::string> asked_;
};

}  // namespace brelmon::cli
