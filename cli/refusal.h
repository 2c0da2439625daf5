// SPDX-License-Identifier: GPL-2.0-or-later
// What ends an action: a reason to be shown, and the exit status.
#pragma once

#include <stdexcept>
#include <string>

namespace brelmon::cli {

/// Exit statuses of actions and of the program. A session's is the greatest of its lines'.
enum Status : int { kDone = 0, kFailed = 1, kUsage = 2 };

/// What was asked can't be done or did not come about. The text is UTF-8 without a line end.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace brelmon::cli
