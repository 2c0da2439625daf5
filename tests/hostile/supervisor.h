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

/// A system call on files within `own`, or on what the program prints, that fails instead; or, with
/// no error, that reads half of what was asked for.
struct Fault {
  long call = 0;
  int nth = 1;  // the first of them, from 1; those that follow fail too
  int error = 0;
  bool once = false;
  int seen = 0;  // how many such calls there were
};
/// Whether this processor's registers are known.
bool CanInject();

/// Killed after a while. `own` is the one folder that may be written to and whose files must not be
/// mapped as code; it is the working directory.
Watched Supervise(const std::vector<std::string>& command, const std::string& own,
                  const std::string& input = {}, Fault* fault = nullptr);

}  // namespace brelmon::hostile
