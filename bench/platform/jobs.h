// SPDX-License-Identifier: GPL-2.0-or-later
// What a click asks of a host, timed through the platform alone: the same code in any host.
#pragma once

#include <functional>
#include <ostream>

#include "platform/map.h"
#include "platform/services.h"

namespace brelmon::bench {

struct Host {
  Ref<IMxDocument> document;
  IHostObjects* objects = nullptr;
  /// Runs a deed as the host runs a click.
  std::function<void(const std::function<void()>&)> turn;
};

struct Job {
  Text layer;
  Text query;   // a where-clause that its source understands
  Text folder;  // for summary tables: in the tools' form, with the closing backslash
};

/// Runs each job five times and writes its name and its median in milliseconds, a line each.
void RunJobs(const Host& host, const Job& told, std::ostream& out);

}  // namespace brelmon::bench
