// SPDX-License-Identifier: GPL-2.0-or-later
// statistics: the toolbar's "Calculate Statistics".
#include <CLI/CLI.hpp>
#include <set>

#include "cli/actions.h"
#include "cli/dialogrows.h"
#include "cli/jsonlines.h"
#include "cli/reportrecords.h"
#include "cli/reports.h"

namespace brelmon::cli {
namespace {

struct StatisticsOptions {
  std::string ItemWord;
  std::vector<std::string> FieldWords;
  bool Selected = false, All = false;
  std::optional<std::string> Ignore;
  bool IgnoreNothing = false;
  std::optional<int> Decimals;
  bool AsJson = false;
};

void ChooseFields(Form& form, const std::vector<Field>& fields, const std::set<int>& chosen) {
  auto& list = Get<ListBox>(form, u"lbxField");
  bool first = true;
  for (const int number : chosen) {
    const Field& field = fields[static_cast<std::size_t>(number) - 1];
    list.UserClick(FieldRow(list, field), !first);
    first = false;
  }
}

void ChooseRecords(Form& form, const StatisticsOptions& options) {
  auto& selected = Get<OptionButton>(form, u"optSelected");
  if (options.Selected && !selected.Usable()) {
    throw Refusal("there are no selected records: --selected can't be chosen");
  }
  if (options.Selected) selected.UserClick();
  if (options.All) Get<OptionButton>(form, u"optAll").UserClick();
}

void ChooseIgnored(Form& form, const StatisticsOptions& options) {
  auto& box = Get<CheckBox>(form, u"chkNoData");
  const bool ticked = box.Value() == 1;
  if ((options.Ignore && !ticked) || (options.IgnoreNothing && ticked)) box.UserClick();
  if (options.Ignore) TypeOver(Get<TextBox>(form, u"txtNoData"), FromUtf8(*options.Ignore));
}

void ChooseDecimals(Form& form, const StatisticsOptions& options) {
  if (!options.Decimals) return;
  auto& places = Get<ComboBox>(form, u"cbxDecPlaces");
  const Text text = FromUtf8(std::to_string(*options.Decimals));
  for (std::int32_t row = 0; row < places.ListCount(); ++row) {
    if (places.List(row) == text) return places.UserChoose(row);
  }
  places.UserType(text);
}

int Statistics(Session& session, const StatisticsOptions& options) {
  const Item item = FindTable(session.Host(), options.ItemWord);
  const auto fields = FieldsOf(item);
  std::set<int> chosen;
  for (const std::string& word : options.FieldWords) {
    chosen.insert(FindField(fields, item, word).Number);
  }
  CloseReport(session);
  bool refused = false;
  const auto work = [&](Form& form) {
    auto& list = Get<ListBox>(form, u"lbxTheme");
    list.UserClick(RowOnOffer(session.Host(), item));
    ChooseFields(form, fields, chosen);
    ChooseRecords(form, options);
    ChooseIgnored(form, options);
    ChooseDecimals(form, options);
    Press(form, u"cmdOK", "no field could be chosen");
    refused = form.Visible();  // after a message that says why
    Dismiss(form);
  };
  const Outcome outcome = session.Click(u"cmdStats", {{u"brelmon_ThemeIDDialog", work}});
  const auto report = ShownReport(session);
  if (report && options.AsJson) {
    PrintReport(ReportText(*report), item.Name);
  } else if (report) {
    PrintText(ReportText(*report));
  }
  return report && !refused && outcome.Trails == 0 ? kDone : kFailed;
}

}  // namespace

void AddStatisticsActions(CLI::App& app, Action& action) {
  const auto options = std::make_shared<StatisticsOptions>();
  CLI::App* statistics =
      app.add_subcommand("statistics", "Calculate statistics and print the report");
  statistics->add_option("ITEM", options->ItemWord, "A layer or table: its name, or #n")
      ->required();
  statistics->add_option("FIELD", options->FieldWords, "Numeric fields: aliases, names or #n")
      ->required();
  auto* selected = statistics->add_flag("--selected", options->Selected, "Selected records only");
  auto* all = statistics->add_flag("--all", options->All, "All records, even with a selection");
  selected->excludes(all);
  auto* ignore =
      statistics->add_option("--ignore", options->Ignore, "Values to ignore, parted by commas")
          ->type_name("LIST");
  auto* nothing = statistics->add_flag("--ignore-nothing", options->IgnoreNothing,
                                       "Ignore no values, after they were ignored once");
  ignore->excludes(nothing);
  statistics->add_option("--decimals", options->Decimals, "Decimal places")->type_name("N");
  const auto json = AddJsonFlag(*statistics);
  statistics->callback([&action, options, json] {
    options->AsJson = *json;
    action = [options](Session& session) { return Statistics(session, *options); };
  });
}

}  // namespace brelmon::cli
