// SPDX-License-Identifier: GPL-2.0-or-later
// contents, fields, frame, tab, pick, graphic: what the module holds, and what is chosen of it.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/dialogrows.h"
#include "cli/jsonlines.h"
#include "hosts/headless/problem.h"

namespace brelmon::cli {
namespace {

const std::string kNone = "-";
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

/// An item and what the listing tells of it.
struct Listing {
  Item Of;
  bool Focus = false, Picked = false, Valid = false;
  std::optional<std::int32_t> Rows, Selected;
  Text Filter;
  std::string Problem;
};

Listing ListingOf(const Item& item, const Ref<IMap>& focus, const Value& selected) {
  Listing listing{
      item, Same(item.Object, focus), IsPicked(selected, item.Object), IsValid(item), {}, {}, {},
      {}};
  if (const auto table = item.Object.TryAs<ITable>(); table && listing.Valid) {
    listing.Rows = table->RowCount({});
    const auto selection = item.Object.As<ITableSelection>()->SelectionSet();
    if (selection) listing.Selected = selection->Count();
  }
  const auto definition = item.Object.TryAs<ITableDefinition>();
  if (definition) listing.Filter = definition->DefinitionExpression();
  const auto problem = item.Object.TryAs<headless::IProblem>();
  if (problem && !listing.Valid) listing.Problem = problem->Problem();
  return listing;
}

std::vector<Listing> Contents(Session& session) {
  const auto document = session.Document();
  const Value selected = document->CurrentContentsView()->SelectedItem();
  const auto focus = document->FocusMap();
  std::vector<Listing> contents;
  for (const Item& item : ItemsOf(session.Host())) {
    contents.push_back(ListingOf(item, focus, selected));
  }
  return contents;
}

int ListContents(Session& session) {
  const auto count = [](const std::optional<std::int32_t>& rows) {
    return rows ? std::to_string(*rows) : kNone;
  };
  const auto contents = Contents(session);
  Columns columns({">number", "mark", "kind", "name", "valid", ">rows", ">selected", "filter"});
  for (const Listing& each : contents) {
    const auto indent = 2 * static_cast<std::size_t>(each.Of.Depth);
    std::string mark = each.Focus ? "focus" : "";
    if (each.Picked) mark += mark.empty() ? "picked" : ",picked";
    columns.Add({std::to_string(each.Of.Number), mark.empty() ? kNone : mark, each.Of.Kind,
                 std::string(indent, ' ') + ToUtf8(each.Of.Name), each.Valid ? "valid" : "invalid",
                 count(each.Rows), count(each.Selected), ToUtf8(each.Filter)});
  }
  columns.Print(std::cout);
  std::cout << std::flush;
  for (const Listing& each : contents) {
    if (each.Problem.empty()) continue;
    std::cerr << ToUtf8(each.Of.Name) << ": not opened: " << each.Problem << std::endl;
  }
  return kDone;
}

int PrintContents(Session& session) {
  const auto count = [](const std::optional<std::int32_t>& rows) {
    return rows ? Json(*rows) : Json(nullptr);
  };
  const JsonLines lines("contents");
  for (const Listing& each : Contents(session)) {
    lines.Print("item", {{"number", each.Of.Number},
                         {"depth", each.Of.Depth},
                         {"kind", each.Of.Kind},
                         {"name", JsonOf(each.Of.Name)},
                         {"focus", each.Focus},
                         {"picked", each.Picked},
                         {"valid", each.Valid},
                         {"rows", count(each.Rows)},
                         {"selected", count(each.Selected)},
                         {"filter", JsonOf(each.Filter)},
                         {"problem", each.Problem}});
  }
  return kDone;
}

int PrintFields(Session& session, const std::string& word) {
  const auto fields = FieldsOf(FindTable(session.Host(), word));
  const JsonLines lines("fields");
  for (const Field& field : fields) {
    lines.Print("field", {{"number", field.Number},
                          {"name", JsonOf(field.Name)},
                          {"alias", JsonOf(field.Alias)},
                          {"type", WordOf(field.Type)},
                          {"visible", field.Visible}});
  }
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
  CLI::App* contents =
      app.add_subcommand("contents", "List data frames, layers, groups and tables");
  const auto contentsAsJson = AddJsonFlag(*contents);
  contents->callback(
      [&action, contentsAsJson] { action = *contentsAsJson ? PrintContents : ListContents; });

  const auto word = std::make_shared<std::string>();
  CLI::App* fields = app.add_subcommand("fields", "List the fields of a layer or table");
  fields->add_option("ITEM", *word, "Its name, or #n")->required();
  const auto json = AddJsonFlag(*fields);
  fields->callback([&action, word, json] {
    action = [word, json](Session& session) {
      return *json ? PrintFields(session, *word) : ListFields(session, *word);
    };
  });

  const auto frame = std::make_shared<std::string>();
  CLI::App* focus = app.add_subcommand("frame", "Bring a data frame into focus");
  focus->add_option("NAME", *frame, "Its name, or #n")->required();
  focus->callback([&action, frame] {
    action = [frame](Session& session) { return BringIntoFocus(session, *frame); };
  });

  const auto name = std::make_shared<std::string>();
  CLI::App* tab = app.add_subcommand("tab", "Bring a contents view to the front");
  tab->add_option("TAB", *name, "Which of them")
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
