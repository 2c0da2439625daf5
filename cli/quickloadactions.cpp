// SPDX-License-Identifier: GPL-2.0-or-later
// quickload: the QuickLoad dialog.
#include <CLI/CLI.hpp>
#include <iostream>
#include <map>
#include <optional>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/reports.h"
#include "cli/userforms.h"
#include "quickload/QuickLoadFile.h"

namespace brelmon::cli {
namespace {

constexpr TextView kForm = u"brelmon_QuickJumpDialog";

struct Kind {
  const char* Word;
  const char* Help;
  TextView Option;
  std::optional<QuickLoadRecord::Kind> Record;  // in the file; data frames are none
};
constexpr Kind kKinds[] = {
    {"frame", "Go to a data frame", u"optViews", {}},
    {"bookmark", "Go to a spatial bookmark", u"optExtents", QuickLoadRecord::Kind::Bookmark},
    {"layer", "Add a layer to the map", u"optLayers", QuickLoadRecord::Kind::Layer},
    {"query", "Print a saved query", u"optQueries", QuickLoadRecord::Kind::Query},
};

/// Numbers of the rows in the editor's list by kind of record, in order.
std::map<QuickLoadRecord::Kind, std::vector<int>> References(Session& session) {
  std::map<QuickLoadRecord::Kind, std::vector<int>> numbers;
  session.Click(
      u"cmdQLDelete",
      {{u"frm_QLDelete", [&](Form& form) {
          auto& list = Get<ListBox>(form, u"lbxReferences");
          for (std::int32_t row = 0; row < list.ListCount(); ++row) {
            numbers[static_cast<QuickLoadRecord::Kind>(list.ItemData(row))].push_back(row + 1);
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
  auto references = References(session);
  Columns columns({"kind", ">number", ">delete", "name"});
  for (const Kind& kind : kKinds) {
    const auto own = kind.Record ? references[*kind.Record] : std::vector<int>();
    for (std::size_t i = 0; i < rows[&kind].size(); ++i) {
      columns.Add({kind.Word, std::to_string(i + 1), i < own.size() ? std::to_string(own[i]) : "-",
                   ToUtf8(rows[&kind][i])});
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
