// SPDX-License-Identifier: GPL-2.0-or-later
// values, query: the query dialog.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "cli/actions.h"
#include "cli/dialogrows.h"
#include "cli/jsonlines.h"
#include "cli/reports.h"
#include "selection/queryoperation.h"

namespace brelmon::cli {
namespace {

constexpr TextView kForm = u"brelmon_ModQueryDialog";

struct Operation {
  const char* Option;
  const char* Help;
  TextView Button;
};
constexpr Operation kOperations[] = {
    {"--new", "Select, or filter to, what matches", u"cmdNewSet"},
    {"--add", "Add what matches", u"cmdAddToSet"},
    {"--subset", "The button Subset", u"cmdSelFromSet"},
    {"--subtract", "The button Subtract", u"cmdSubtractFromSet"},
    {"--clear", "Clear the selection or the filter", u"cmdClear"},
    {"--verify", "Only try the text", u"cmdVerify"},
};
constexpr std::size_t kClear = 4, kVerify = 5;

struct QueryOptions {
  std::string ItemWord;
  std::optional<std::string> QueryText;
  bool Chosen[std::size(kOperations)] = {};
  bool Filter = false, AsJson = false;

  std::size_t Chose() const {
    return static_cast<std::size_t>(std::find(std::begin(Chosen), std::end(Chosen), true) -
                                    std::begin(Chosen));
  }
};

void ChooseItem(Form& form, Session& session, const Item& item) {
  Get<ListBox>(form, u"lbxThemes").UserClick(RowOnOffer(session.Host(), item));
}

void PrintValues(const std::vector<Text>& values) {
  const JsonLines lines("values");
  for (const Text& value : values) lines.Print("value", {{"text", JsonOf(value)}});
}

int Values(Session& session, const std::string& itemWord, const std::string& fieldWord, bool json) {
  const Item item = FindTable(session.Host(), itemWord);
  const auto fields = FieldsOf(item);
  const Field field = FindField(fields, item, fieldWord);
  std::vector<Text> values;
  const auto work = [&](Form& form) {
    ChooseItem(form, session, item);
    auto& list = Get<ListBox>(form, u"lbxFields");
    list.UserClick(FieldRow(list, field));
    Press(form, u"cmdUpdate", "no values can be asked for");
    values = RowsOf(Get<ListBox>(form, u"lbxValues"));
    Dismiss(form);
  };
  const Outcome outcome = session.Click(u"cmdSelByAttBrelmon", {{Text(kForm), work}});
  json ? PrintValues(values) : PrintTexts(values);
  return outcome.Untroubled() ? kDone : kFailed;
}

void PressOperation(Form& form, const Operation& operation) {
  const std::string caption = ToUtf8(form.ControlNamed(operation.Button).Caption());
  Press(form, operation.Button,
        "the button " + caption + " is disabled: there is nothing that it could work on");
}

/// What the click came to; the count at the end of the line that the dialog shows.
void PrintResult(const QueryOptions& options, const Item& item, const Text& line) {
  const auto blank = line.rfind(u' ');
  const Json count = NumberIn(blank == Text::npos ? line : line.substr(blank + 1));
  const JsonLines lines("query");
  lines.Print("result", {{"item", JsonOf(item.Name)},
                         {"operation", kOperations[options.Chose()].Option + 2},
                         {"target", options.Filter ? "filter" : "selection"},
                         {"text", JsonOf(line)},
                         {"count", count}});
}

int Query(Session& session, const QueryOptions& options) {
  const Item item = FindTable(session.Host(), options.ItemWord);
  const std::size_t chose = options.Chose();
  Text count;
  const auto work = [&](Form& form) {
    Get<OptionButton>(form, options.Filter ? u"optFiltered" : u"optSelected").UserClick();
    ChooseItem(form, session, item);
    if (options.QueryText) {
      TypeOver(Get<TextBox>(form, u"txtQuery"), FromUtf8(*options.QueryText));
    }
    PressOperation(form, kOperations[chose]);
    count = form.ControlNamed(u"lblNumSelected").Caption();
    Dismiss(form);
  };
  const Outcome outcome = session.Click(u"cmdSelByAttBrelmon", {{Text(kForm), work}});
  const bool verified =
      outcome.Trails == 0 && outcome.Told.size() == 1 && outcome.Told[0] == kVerifiedTitle;
  if (chose == kVerify ? !verified : !outcome.Untroubled()) return kFailed;
  options.AsJson ? PrintResult(options, item, count) : PrintText(count);
  return kDone;
}

void AddQuery(CLI::App& app, Action& action) {
  const auto options = std::make_shared<QueryOptions>();
  CLI::App* query =
      app.add_subcommand("query", "Select or filter by a query text and print how many");
  query->add_option("ITEM", options->ItemWord, "A layer or table: its name, or #n")->required();
  query->add_option("TEXT", options->QueryText, "The query; not for --clear");
  CLI::Option_group* operations = query->add_option_group("Operations");
  for (std::size_t i = 0; i < std::size(kOperations); ++i) {
    operations->add_flag(kOperations[i].Option, options->Chosen[i], kOperations[i].Help);
  }
  operations->require_option(1);
  query->add_flag("--filter", options->Filter, "Work on the filter in place of the selection");
  const auto json = AddJsonFlag(*query);
  query->callback([&action, options, json] {
    options->AsJson = *json;
    if (!options->QueryText && !options->Chosen[kClear]) throw CLI::RequiredError("TEXT");
    action = [options](Session& session) { return Query(session, *options); };
  });
}

}  // namespace

void AddQueryActions(CLI::App& app, Action& action) {
  const auto words = std::make_shared<std::pair<std::string, std::string>>();
  CLI::App* values = app.add_subcommand("values", "List the values of a field, as in the dialog");
  values->add_option("ITEM", words->first, "A layer or table: its name, or #n")->required();
  values->add_option("FIELD", words->second, "Its alias, name or #n")->required();
  const auto json = AddJsonFlag(*values);
  values->callback([&action, words, json] {
    action = [words, json](Session& session) {
      return Values(session, words->first, words->second, *json);
    };
  });
  AddQuery(app, action);
}

}  // namespace brelmon::cli
