// SPDX-License-Identifier: GPL-2.0-or-later
// One handler for three signals; one that is ignored stays so.
#include "cli/signals.h"

#include <signal.h>

#include "hosts/columns/unfinished.h"
#include "hosts/servers/connection.h"

namespace brelmon::cli {
namespace {

/// The signal comes again as soon as this returns, and finds nobody.
void End(int number) {
  columns::Unfinished::RemoveAll();
  servers::CancelAll();
  ::raise(number);
}

}  // namespace

void EndCleanlyAtSignals() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before {
    }, end{};
    ::sigaction(number, nullptr, &before);
    if (before.sa_handler == SIG_IGN) continue;
    end.sa_handler = End;
    end.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(number, &end, nullptr);
  }
}

}  // namespace brelmon::cli
