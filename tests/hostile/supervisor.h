// SPDX-License-Identifier: GPL-2.0-or-later
// Runs a program without a network and notes what it does to the world.
#pragma once

#include <string>
#include <vector>

namespace brelmon::hostile {

struct Watched {
  int status = -1;  // 128 and the signal's number for one that was killed
  std::string out, err;
  /// "socket 2", "exec /bin/sh", "write /etc/passwd", "load /module/probe.so", in their order. What
  /// is written inside of `own` isn't noted, nor are the null device and the terminal.
  std::vector<std::string> deeds;
};

/// Killed after a while. `own` is the one folder that may be written to and whose files must not be
/// mapped as code; it is the working directory.
Watched Supervise(const std::vector<std::string>& command, const std::string& own,
                  const std::string& input = {});

}  // namespace brelmon::hostile
