// SPDX-License-Identifier: GPL-2.0-or-later
// The actions, by groups. Each group adds its subcommands to a parser that is made for one line.
#pragma once

#include <functional>

#include "cli/session.h"

namespace CLI {
class App;
}

namespace brelmon::cli {

/// Runs in an open session and gives an exit status; what it refuses it throws as Refusal. Results
/// go to standard output.
using Action = std::function<int(Session&)>;

/// Each sets `action` when one of its words was parsed.
void AddToolbarActions(CLI::App& app, Action& action);
void AddContentsActions(CLI::App& app, Action& action);
void AddClickActions(CLI::App& app, Action& action);
void AddStatisticsActions(CLI::App& app, Action& action);
void AddQueryActions(CLI::App& app, Action& action);
void AddSummarizeActions(CLI::App& app, Action& action);
void AddQuickLoadActions(CLI::App& app, Action& action);
void AddQuickLoadEditActions(CLI::App& quickload, Action& action);
void AddMediaActions(CLI::App& app, Action& action);
void AddAboutActions(CLI::App& app, Action& action);
void AddCheckActions(CLI::App& app, Action& action);
void AddPublishActions(CLI::App& app, Action& action);

}  // namespace brelmon::cli
