// SPDX-License-Identifier: GPL-2.0-or-later
// click: a bare click on any command.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "cli/actions.h"
#include "frame/commandtable.h"

namespace brelmon::cli {
namespace {

/// The class in its own case.
TextView ClassNamed(const std::string& word) {
  const Text name = FromUtf8(word);
  for (const CommandInfo& info : CommandTable()) {
    if (EqualNoCase(info.ClassName, name)) return info.ClassName;
  }
  throw Refusal("there is no command \"" + word + "\": the action commands lists them");
}

int Click(Session& session, const std::string& word) {
  const auto before = session.Host().Tables().Open();
  const Outcome outcome = session.Click(ClassNamed(word));
  for (const headless::TableWindowInfo& each : session.Host().Tables().Open()) {
    const bool stood = std::any_of(before.begin(), before.end(), [&each](const auto& other) {
      return Same(other.window, each.window);
    });
    if (each.visible && !stood) std::cout << "table window: " << ToUtf8(each.name) << '\n';
  }
  return outcome.Untroubled() ? kDone : kFailed;
}

}  // namespace

void AddClickActions(CLI::App& app, Action& action) {
  const auto word = std::make_shared<std::string>();
  CLI::App* click = app.add_subcommand("click", "Click a command");
  click->add_option("CLASS", *word, "Its class, as commands lists it")->required();
  click->callback(
      [&action, word] { action = [word](Session& session) { return Click(session, *word); }; });
}

}  // namespace brelmon::cli
