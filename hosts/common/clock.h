// SPDX-License-Identifier: GPL-2.0-or-later
// The system's local time, or a fixed one.
#pragma once

#include <optional>
#include <string_view>

#include "platform/services.h"

namespace brelmon::host {

/// "2026-11-16T14:15:07" (a blank for the T will do, the seconds may be missing); nothing for any
/// other text or a day that the calendar lacks.
std::optional<CivilTime> ParseIsoTime(std::string_view text);

class HostClock : public IClock {
 public:
  /// Fixed by the environment's BRELMON_NOW if that can be read as a time.
  HostClock();
  Date Now() override;
  /// Nothing sets the clock going again.
  void Fix(std::optional<CivilTime> time) { fixed_ = time; }

 private:
  std::optional<CivilTime> fixed_;
};

}  // namespace brelmon::host
