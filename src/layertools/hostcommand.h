// SPDX-License-Identifier: GPL-2.0-or-later
// The wrappers that only run a command of the host.
#pragma once

#include "frame/command.h"

namespace brelmon {

/// Its click finds the host's command by identifier and runs it; where the host has none, the
/// failure is that of an unset object.
class HostCommand : public BrelmonCommand {
 public:
  void OnClick() override;

 protected:
  HostCommand(TextView className, TextView identifier, const char* file = __builtin_FILE());

 private:
  TextView identifier_;
  const char* file_;
};

}  // namespace brelmon
