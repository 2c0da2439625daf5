// SPDX-License-Identifier: GPL-2.0-or-later
// What may stand on any line: answers to questions, the time.
#pragma once

#include <optional>

#include "platform/date.h"

namespace brelmon::cli {

struct Choices {
  std::optional<bool> answer;  // yes or no to all questions
  std::optional<CivilTime> now;

  /// Its own where they are given, else those of `outer`.
  Choices Over(const Choices& outer) const {
    return {answer ? answer : outer.answer, now ? now : outer.now};
  }
};

}  // namespace brelmon::cli
