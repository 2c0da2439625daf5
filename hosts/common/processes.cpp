// SPDX-License-Identifier: GPL-2.0-or-later
// Signal 0 is only asked for, never sent.
#include "hosts/common/processes.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>

namespace brelmon::host {

long OwnProcess() { return ::getpid(); }

bool ProcessLives(long number) {
  return number > 0 && (::kill(static_cast<pid_t>(number), 0) == 0 || errno != ESRCH);
}

}  // namespace brelmon::host
