// SPDX-License-Identifier: GPL-2.0-or-later
// Failures that come out of a host, not out of a tool: they bear the host's name and no line.
#pragma once

#include <string_view>
#include <utility>

#include "platform/failure.h"

namespace brelmon::host {

inline constexpr TextView kFailureSource = u"Brelmon host";

/// `reason` is UTF-8; empty gives the platform's own words for the number.
[[noreturn]] inline void Fail(std::int32_t number, std::string_view reason = {}) {
  throw Failure(number, Text(kFailureSource),
                reason.empty() ? DescriptionOf(number) : FromUtf8(reason));
}

[[noreturn]] inline void Fail(std::int32_t number, Text reason) {
  throw Failure(number, Text(kFailureSource), std::move(reason));
}

}  // namespace brelmon::host
