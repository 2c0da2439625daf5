// SPDX-License-Identifier: GPL-2.0-or-later
// toolbar, commands: what there is to click, and whether it can be.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/jsonlines.h"
#include "frame/commandtable.h"
#include "hosts/common/baritems.h"

namespace brelmon::cli {
namespace {

/// The class's cells of a listing.
Columns::Row RowOfClass(Session& session, int position, const Text& className) {
  const auto command = session.Command(className);
  return {std::to_string(position), ToUtf8(className), ToUtf8(command->Caption()),
          session.Enabled(className) ? "enabled" : "disabled"};
}

std::vector<host::BarItem> ItemsOfBar(Session& session) {
  return host::ItemsOf(*session.CreateObject(kToolBarClass).As<IToolBarDef>());
}

int ListToolBar(Session& session) {
  Columns columns({">position", "class", "caption", "state", "group"});
  int position = 0;
  for (const auto& [className, beginsGroup] : ItemsOfBar(session)) {
    auto row = RowOfClass(session, position++, className);
    row.push_back(beginsGroup ? "group" : "");
    columns.Add(std::move(row));
  }
  columns.Print(std::cout);
  return kDone;
}

int PrintToolBar(Session& session) {
  const JsonLines lines("toolbar");
  int position = 0;
  for (const auto& [className, group] : ItemsOfBar(session)) {
    lines.Print("button", {{"position", position++},
                           {"class", JsonOf(className)},
                           {"caption", JsonOf(session.Command(className)->Caption())},
                           {"enabled", session.Enabled(className)},
                           {"group", group}});
  }
  return kDone;
}

int ListCommands(Session& session) {
  Columns columns({">position", "class", "caption", "state"});
  int position = 0;
  for (const CommandInfo& info : CommandTable()) {
    columns.Add(RowOfClass(session, position++, Text(info.ClassName)));
  }
  columns.Print(std::cout);
  return kDone;
}

}  // namespace

void AddToolbarActions(CLI::App& app, Action& action) {
  CLI::App* toolbar = app.add_subcommand(
      "toolbar", "List the toolbar's items; \"group\" marks where a group begins");
  const auto json = AddJsonFlag(*toolbar);
  toolbar->callback([&action, json] { action = *json ? PrintToolBar : ListToolBar; });
  app.add_subcommand("commands", "List all twenty commands")->callback([&action] {
    action = ListCommands;
  });
}

}  // namespace brelmon::cli
