// SPDX-License-Identifier: GPL-2.0-or-later
// contents, fields, frame, tab, pick, graphic: what the module holds, and what is chosen of it.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/dialogrows.h"
#include "hosts/headless/problem.h"

namespace brelmon::cli {
namespace {

constexpr const char* kNone = "-";
using Words = std::vector<std::string>;

bool IsPicked(const Value& selected, const Ref<IObject>& object) {
  if (!selected.IsObject()) return false;
  const Ref<IObject> only = selected.ToObject();
  const auto set = only.TryAs<ISet>();
  if (!set) return Same(only, object);
  set->Reset();
  while (const auto each = set->Next()) {
    if (Same(each, object)) return true;
  }
  return false;
}

/// Counts and filter as cells; marks for what has none.
void AddTableCells(const Item& item, bool valid, Columns::Row& row) {
  const auto table = item.Object.TryAs<ITable>();
  if (!table || !valid) {
    row.insert(row.end(), {kNone, kNone});
  } else {
    const auto selection = item.Object.As<ITableSelection>()->SelectionSet();
    row.push_back(std::to_string(table->RowCount({})));
    row.push_back(selection ? std::to_string(selection->Count()) : kNone);
  }
  const auto definition = item.Object.TryAs<ITableDefinition>();
  row.push_back(definition ? ToUtf8(definition->DefinitionExpression()) : "");
}

int ListContents(Session& session) {
  const auto document = session.Document();
  const Value selected = document->CurrentContentsView()->SelectedItem();
  const auto focus = document->FocusMap();
  Columns columns({">number", "mark", "kind", "name", "valid", ">rows", ">selected", "filter"});
  std::vector<std::string> problems;
  for (const Item& item : ItemsOf(session.Host())) {
    const bool valid = IsValid(item);
    const auto problem = item.Object.TryAs<headless::IProblem>();
    if (!valid && problem) {
      problems.push_back(ToUtf8(item.Name) + ": not opened: " + problem->Problem());
    }
    std::string mark = Same(item.Object, focus) ? "focus" : "";
    if (IsPicked(selected, item.Object)) mark += mark.empty() ? "picked" : ",picked";
    Columns::Row row{std::to_string(item.Number), mark.empty() ? kNone : mark, item.Kind,
                     std::string(2 * static_cast<std::size_t>(item.Depth), ' ') + ToUtf8(item.Name),
                     valid ? "valid" : "invalid"};
    AddTableCells(item, valid, row);
    columns.Add(std::move(row));
  }
  columns.Print(std::cout);
  std::cout << std::flush;
  for (const std::string& each : problems) std::cerr << each << std::endl;
  return kDone;
}

int ListFields(Session& session, const std::string& word) {
  Columns columns({">number", "name", "alias", "type", "visible"});
  for (const Field& field : FieldsOf(FindTable(session.Host(), word))) {
    columns.Add({std::to_string(field.Number), ToUtf8(field.Name), ToUtf8(field.Alias),
                 WordOf(field.Type), field.Visible ? "visible" : "hidden"});
  }
  columns.Print(std::cout);
  return kDone;
}

int Pick(Session& session, const Words& words) {
  const auto items = ItemsOf(session.Host());
  std::vector<Ref<IObject>> picked;
  for (const std::string& word : words) {
    const Ref<IObject>& object = FindItem(items, word).Object;
    const auto twice = [&object](const auto& each) { return Same(each, object); };
    if (std::none_of(picked.begin(), picked.end(), twice)) picked.push_back(object);
  }
  session.Host().Pick(std::move(picked));
  return kDone;
}

int BringIntoFocus(Session& session, const std::string& word) {
  auto items = ItemsOf(session.Host());
  // A layer may bear a frame's name; numbers count all items.
  if (!word.starts_with('#')) {
    std::erase_if(items, [](const Item& item) { return item.Depth > 0; });
  }
  const auto view = FindItem(items, word).Object.TryAs<IActiveView>();
  if (!view) throw Refusal("\"" + word + "\" is no data frame");
  session.Document()->SetActiveView(view);
  return kDone;
}

int SetTab(Session& session, const std::string& name) {
  if (!session.Host().SetTab(FromUtf8(name))) throw Refusal("there is no tab \"" + name + "\"");
  return kDone;
}

}  // namespace

void AddContentsActions(CLI::App& app, Action& action) {
  app.add_subcommand("contents", "List data frames, layers, groups and tables")
      ->callback([&action] { action = ListContents; });

  const auto word = std::make_shared<std::string>();
  CLI::App* fields = app.add_subcommand("fields", "List the fields of a layer or table");
  fields->add_option("ITEM", *word, "Its name, or #n")->required();
  fields->callback([&action, word] {
    action = [word](Session& session) { return ListFields(session, *word); };
  });

  const auto frame = std::make_shared<std::string>();
  CLI::App* focus = app.add_subcommand("frame", "Bring a data frame into focus");
  focus->add_option("NAME", *frame, "Its name, or #n")->required();
  focus->callback([&action, frame] {
    action = [frame](Session& session) { return BringIntoFocus(session, *frame); };
  });

  const auto name = std::make_shared<std::string>();
  CLI::App* tab = app.add_subcommand("tab", "Bring a contents view to the front");
  tab->add_option("TAB", *name, "Display, Source or Selection")
      ->required()
      ->check(CLI::IsMember({"Display", "Source", "Selection"}));
  tab->callback(
      [&action, name] { action = [name](Session& session) { return SetTab(session, *name); }; });

  const auto words = std::make_shared<Words>();
  CLI::App* pick = app.add_subcommand("pick", "Select items in the contents view, none without");
  pick->add_option("ITEM", *words, "Names, or #n");
  pick->callback(
      [&action, words] { action = [words](Session& session) { return Pick(session, *words); }; });

  const auto shapes = std::make_shared<Words>();
  CLI::App* graphic = app.add_subcommand("graphic", "Put selected graphics on the map");
  graphic->add_option("WKT", *shapes, "Well-known texts in the data frame's reference system");
  graphic->callback([&action, shapes] {
    action = [shapes](Session& session) {
      session.Host().SetGraphics(*shapes);
      return int{kDone};
    };
  });
}

}  // namespace brelmon::cli
