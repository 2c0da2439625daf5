// SPDX-License-Identifier: GPL-2.0-or-later
// Lines of words as actions.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/actions.h"
#include "cli/choices.h"
#include "cli/programtext.h"

namespace brelmon::cli {

/// What a line asks for. Without an action, `Ended` says how it went: help was printed (0), or
/// what was wrong with it (2).
struct Line {
  Action Run;
  Choices Given;
  int Ended = kDone;
};
/// `words` begin with the action; options for any line may stand before it.
/// `where` stands before what is told of a fault.
Line ParseLine(std::vector<std::string> words, const std::string& where = {});

/// The program's own arguments: MODULE, and the words of one action if there are any.
struct Front {
  std::optional<int> Ended;  // help, version or a fault: nothing is to be run
  std::string Module;
  Choices Given;
  std::vector<std::string> Words;
};
Front ParseFront(const std::vector<std::string>& arguments);

/// The program with all its options and actions, as its parsers tell them.
ActionText WholeText();

/// Names of the actions, or of those that stand behind `action`, for completion.
std::vector<std::string> ActionNames(const std::string& action = {});

/// Runs a parsed line and tells of what it refused, `where` before it.
int RunLine(Session& session, const Line& line, const Choices& outer, const std::string& where);

}  // namespace brelmon::cli
