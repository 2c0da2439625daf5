// SPDX-License-Identifier: GPL-2.0-or-later
// toolbar, commands: what there is to click, and whether it can be.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/actions.h"
#include "cli/columns.h"
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

int ListToolBar(Session& session) {
  const auto bar = session.CreateObject(kToolBarClass).As<IToolBarDef>();
  Columns columns({">position", "class", "caption", "state", "group"});
  int position = 0;
  for (const auto& [className, beginsGroup] : host::ItemsOf(*bar)) {
    auto row = RowOfClass(session, position++, className);
    row.push_back(beginsGroup ? "group" : "");
    columns.Add(std::move(row));
  }
  columns.Print(std::cout);
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
  app.add_subcommand("toolbar", "List the toolbar's items; \"group\" marks where a group begins")
      ->callback([&action] { action = ListToolBar; });
  app.add_subcommand("commands", "List all twenty commands")->callback([&action] {
    action = ListCommands;
  });
}

}  // namespace brelmon::cli
