// SPDX-License-Identifier: GPL-2.0-or-later
// Catalog dialogs, answered in advance, and the layer files that they give.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/common/paths.h"
#include "platform/windows.h"

namespace brelmon::headless {

/// Answers for dialogs to come, in order. A dialog that finds none fails: nobody is there to ask.
class CatalogAnswers {
 public:
  /// System paths that the user chooses or, for a save dialog, the one that is to be written.
  void Choose(std::vector<std::string> systemPaths) {
    answers_.emplace_back(std::move(systemPaths));
  }
  void Cancel() { answers_.emplace_back(std::nullopt); }
  void Forget() { answers_.clear(); }

  /// Unset where the user cancels. Fails with 445 where no answer is left; `title` names the
  /// dialog.
  std::optional<std::vector<std::string>> Take(const Text& title);

 private:
  std::deque<std::optional<std::vector<std::string>>> answers_;
};

Ref<IGxDialog> NewGxDialog(std::shared_ptr<CatalogAnswers> answers,
                           host::Paths paths = host::Paths());
/// Offers IGxFile and IGxObject too.
Ref<IGxLayer> NewGxLayer(host::Paths paths = host::Paths());

}  // namespace brelmon::headless
