// SPDX-License-Identifier: GPL-2.0-or-later
// quickload: the QuickLoad dialog.
#include <CLI/CLI.hpp>
#include <iostream>
#include <map>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/reports.h"
#include "cli/userforms.h"

namespace brelmon::cli {
namespace {

constexpr TextView kForm = u"brelmon_QuickJumpDialog";

struct Kind {
  const char* Word;
  const char* Help;
  TextView Option;
  TextView Mark;  // in the editor's list of all references; data frames are none
};
constexpr Kind kKinds[] = {
    {"frame", "Go to a data frame", u"optViews", u""},
    {"bookmark", "Go to a spatial bookmark", u"optExtents", u"  [Spatial Bookmark]"},
    {"layer", "Add a layer to the map", u"optLayers", u"  [Layer File]"},
    {"query", "Print a saved query", u"optQueries", u"  [Saved Query]"},
};

/// Rows of the editor's list by kind mark: their numbers there, in order.
std::map<TextView, std::vector<int>> References(Session& session) {
  std::map<TextView, std::vector<int>> numbers;
  session.Click(u"cmdQLDelete",
                {{u"frm_QLDelete", [&](Form& form) {
                    int number = 0;
                    for (const Text& row : RowsOf(Get<ListBox>(form, u"lbxReferences"))) {
                      ++number;
                      for (const Kind& kind : kKinds) {
                        if (!kind.Mark.empty() && row.ends_with(kind.Mark)) {
                          numbers[kind.Mark].push_back(number);
                        }
                      }
                    }
                    Dismiss(form);
                  }}});
  return numbers;
}

int List(Session& session) {
  std::map<const Kind*, std::vector<Text>> rows;
  const auto work = [&rows](Form& form) {
    for (const Kind& kind : kKinds) {
      auto& option = Get<OptionButton>(form, kind.Option);
      option.UserClick();
      rows[&kind] = RowsOf(Get<ListBox>(form, u"lbxList"));
    }
    Dismiss(form);
  };
  const Outcome outcome = session.Click(u"cmdQuickLoad", {{Text(kForm), work}});
  if (!outcome.Untroubled()) return kFailed;
  const auto references = References(session);
  Columns columns({"kind", ">number", ">delete", "name"});
  for (const Kind& kind : kKinds) {
    const auto own = references.find(kind.Mark);
    for (std::size_t i = 0; i < rows[&kind].size(); ++i) {
      const bool referenced = own != references.end() && i < own->second.size();
      columns.Add({kind.Word, std::to_string(i + 1),
                   referenced ? std::to_string(own->second[i]) : "-", ToUtf8(rows[&kind][i])});
    }
  }
  columns.Print(std::cout);
  return kDone;
}

/// The option as a user sees it filled: its rows are those of now, also where it was on already.
void Choose(Form& form, const Kind& kind, int number) {
  auto& other = Get<OptionButton>(form, &kind == kKinds ? kKinds[1].Option : kKinds[0].Option);
  other.UserClick();
  Get<OptionButton>(form, kind.Option).UserClick();
  auto& list = Get<ListBox>(form, u"lbxList");
  if (number < 1 || number > list.ListCount()) {
    throw Refusal("there is no " + std::string(kind.Word) + " " + std::to_string(number) +
                  ": quickload list shows " + std::to_string(list.ListCount()));
  }
  list.UserClick(number - 1);
}

int Jump(Session& session, const Kind& kind, int number) {
  bool chosen = false;
  const auto work = [&](Form& form) {
    Choose(form, kind, number);
    Press(form, u"cmdOK", "nothing is chosen");
    chosen = !form.Visible();
    Dismiss(form);
  };
  const Outcome outcome = session.Click(u"cmdQuickLoad", {{Text(kForm), work}, ReadReports()});
  return chosen && outcome.Untroubled() ? kDone : kFailed;
}

}  // namespace

void AddQuickLoadActions(CLI::App& app, Action& action) {
  CLI::App* quickload =
      app.add_subcommand("quickload", "The module's shortcuts, and their editors");
  quickload->require_subcommand(1);
  quickload->add_subcommand("list", "List them; \"delete\" has the numbers for quickload delete")
      ->callback([&action] { action = List; });
  const auto number = std::make_shared<int>(0);
  for (const Kind& kind : kKinds) {
    CLI::App* jump = quickload->add_subcommand(kind.Word, kind.Help);
    jump->add_option("N", *number, "Number in the list")->required();
    jump->callback([&action, &kind, number] {
      action = [&kind, number](Session& session) { return Jump(session, kind, *number); };
    });
  }
  AddQuickLoadEditActions(*quickload, action);
}

}  // namespace brelmon::cli
