// SPDX-License-Identifier: GPL-2.0-or-later
// summarize: the Summarize dialog, and the table that it makes.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/dialogrows.h"
#include "cli/jsonlines.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/paths.h"
#include "summarize/summarystring.h"

namespace brelmon::cli {
namespace {

constexpr int kRowsShown = 10;

struct SummarizeOptions {
  std::string ItemWord, FieldWord, Output;
  std::vector<std::string> Statistics;  // "Average:MAG"
  bool Selected = false, All = false, AsJson = false;
};

struct Ticked {
  std::string Statistic;
  const Field* Of;
};

std::vector<Ticked> FindStatistics(const SummarizeOptions& options, const Item& item,
                                   const std::vector<Field>& fields) {
  std::vector<Ticked> found;
  for (const std::string& word : options.Statistics) {
    const auto colon = word.find(':');
    if (colon == std::string::npos) {
      throw Refusal("\"" + word + "\" is no statistic and field: write Average:FIELD or the like");
    }
    found.push_back({word.substr(0, colon), &FindField(fields, item, word.substr(colon + 1))});
  }
  return found;
}

Node& FieldNode(TreeView& tree, const Field& field) {
  for (Node* node : tree.Roots()) {
    if (node->Data == field.Number - 1) return *node;
  }
  RefuseUnlisted(field);
}

void Tick(TreeView& tree, Node& field, const std::string& statistic) {
  std::string choice;
  for (Node* node : field.Children()) {
    if (EqualNoCase(node->Caption(), FromUtf8(statistic))) {
      tree.UserExpand(field, true);
      if (node->Image() != kTicked) tree.UserNodeClick(*node);
      return;
    }
    choice += (choice.empty() ? "" : ", ") + ToUtf8(node->Caption());
  }
  throw Refusal("there is no statistic \"" + statistic + "\" of \"" + ToUtf8(field.Caption()) +
                "\": there are " + choice);
}

/// What the new table's columns hold, in their order.
std::vector<std::string> Meanings(TreeView& tree, const Field& by) {
  const std::string name = ToUtf8(by.Alias);
  std::vector<std::string> meanings{"value of " + name, "records of that value"};
  for (std::int32_t i = 1; i <= tree.NodeCount(); ++i) {
    const Node& node = tree.NodeAt(i);
    if (node.Parent() == nullptr || node.Image() != kTicked) continue;
    std::string words = ToUtf8(node.Caption());
    for (char& c : words) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    meanings.push_back(words + " of " + ToUtf8(node.Parent()->Caption()));
  }
  return meanings;
}

void ChooseRecords(Form& form, const SummarizeOptions& options) {
  auto& box = Get<CheckBox>(form, u"chkSumSelected");
  if (options.Selected && !box.Usable()) {
    throw Refusal("there are no selected records: --selected can't be chosen");
  }
  if ((options.Selected && box.Value() != 1) || (options.All && box.Value() == 1)) box.UserClick();
}

/// The new table's columns that hold data: row identifiers are the host's.
std::vector<Field> DataFields(const Item& table) {
  auto fields = FieldsOf(table);
  std::erase_if(fields, [](const Field& field) { return field.Type >= FieldType::OID; });
  return fields;
}

/// What each column holds.
std::vector<std::string> MeaningsOf(const std::vector<Field>& fields,
                                    const std::vector<std::string>& meanings) {
  // A host may write the field itself before the terms that were asked for.
  const std::size_t extra = fields.size() > meanings.size() ? fields.size() - meanings.size() : 0;
  std::vector<std::string> held;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::size_t term = i < extra ? 0 : i - extra;
    held.push_back(term < meanings.size() ? meanings[term] : "");
  }
  return held;
}

void PrintColumns(const std::vector<Field>& fields, const std::vector<std::string>& held) {
  Columns columns({"column", "holds"});
  for (std::size_t i = 0; i < fields.size(); ++i) columns.Add({ToUtf8(fields[i].Name), held[i]});
  columns.Print(std::cout);
}

std::string CellOf(const Value& value) { return value.IsNull() ? "-" : ToUtf8(value.ToText()); }

void PrintRows(const Item& table, const std::vector<Field>& fields) {
  Columns::Row headings;
  for (const Field& field : fields) {
    headings.push_back((field.Type < FieldType::String ? ">" : "") + ToUtf8(field.Name));
  }
  Columns columns(headings);
  const auto data = table.Object.As<ITable>();
  const auto cursor = data->Search({}, true);
  int shown = 0;
  for (auto row = cursor->NextRow(); row && shown < kRowsShown; row = cursor->NextRow(), ++shown) {
    Columns::Row cells;
    for (const Field& field : fields) cells.push_back(CellOf(row->Value(field.Number - 1)));
    columns.Add(std::move(cells));
  }
  columns.Print(std::cout);
  const std::int32_t more = data->RowCount({}) - shown;
  if (more > 0) std::cout << "... and " << more << " more\n";
}

/// What a run was asked for, found in the module.
struct Request {
  const SummarizeOptions& Options;
  Item Of;
  std::vector<Field> Fields;
  Field By;
  std::vector<Ticked> Statistics;
  std::string Output;  // system path
};

void TickStatistics(TreeView& tree, const Request& request) {
  for (const auto& [statistic, field] : request.Statistics) {
    if (field->Number == request.By.Number) {
      throw Refusal("\"" + ToUtf8(field->Alias) +
                    "\" is what is summarized by: it has no statistics");
    }
    Tick(tree, FieldNode(tree, *field), statistic);
  }
}

/// Fills the form and presses OK; gives what the columns will hold.
std::vector<std::string> WorkForm(Form& form, Session& session, const Request& request) {
  Get<ComboBox>(form, u"cbxLayer").UserChoose(RowOnOffer(session.Host(), request.Of));
  auto& names = Get<ComboBox>(form, u"cbxFieldName");
  names.UserChoose(FieldRow(names, request.By));
  auto& tree = Get<TreeView>(form, u"treeFields");
  TickStatistics(tree, request);
  ChooseRecords(form, request.Options);
  TypeOver(Get<TextBox>(form, u"txtOutput"), host::Paths().ToWindows(request.Output));
  auto meanings = Meanings(tree, request.By);
  Press(form, u"cmdOK", "there is no path to write to");
  Dismiss(form);
  return meanings;
}

/// All rows, with their values by the columns' names.
void PrintRecords(const Item& table, const std::string& path, const std::vector<Field>& fields,
                  const std::vector<std::string>& held) {
  const JsonLines lines("summarize");
  const auto data = table.Object.As<ITable>();
  lines.Print("table", {{"path", path}, {"rows", data->RowCount({})}});
  for (std::size_t i = 0; i < fields.size(); ++i) {
    lines.Print(
        "column",
        {{"name", JsonOf(fields[i].Name)}, {"type", WordOf(fields[i].Type)}, {"holds", held[i]}});
  }
  const auto cursor = data->Search({}, true);
  for (auto row = cursor->NextRow(); row; row = cursor->NextRow()) {
    Json values = Json::object();
    for (const Field& each : fields) {
      values[ToUtf8(each.Name)] = JsonOf(row->Value(each.Number - 1));
    }
    lines.Print("row", {{"values", values}});
  }
}

void PrintTable(const Item& table, const std::vector<std::string>& meanings, bool json) {
  const auto fields = DataFields(table);
  const auto held = MeaningsOf(fields, meanings);
  // The host adds an extension to a name without one.
  const auto path = table.Object.As<IDataset>()->FullName().As<host::DatasetPath>()->SystemPath;
  if (json) return PrintRecords(table, path, fields, held);
  std::cout << "table: " << path << "\n\n";
  PrintColumns(fields, held);
  std::cout << '\n';
  PrintRows(table, fields);
}

int Summarize(Session& session, const SummarizeOptions& options) {
  Request request{options, FindTable(session.Host(), options.ItemWord), {}, {}, {}, {}};
  request.Fields = FieldsOf(request.Of);
  request.By = FindField(request.Fields, request.Of, options.FieldWord);
  request.Statistics = FindStatistics(options, request.Of, request.Fields);
  request.Output = std::filesystem::absolute(options.Output).lexically_normal().string();
  std::vector<std::string> meanings;
  const auto work = [&](Form& form) { meanings = WorkForm(form, session, request); };
  const auto tables = session.Document()->FocusMap().As<IStandaloneTableCollection>();
  const std::int32_t before = tables->StandaloneTableCount();
  const Outcome outcome = session.Click(u"cmdSumBrelmon", {{u"frm_Brelmon_Summarize", work}});
  const std::int32_t after = tables->StandaloneTableCount();
  if (after == before) return kFailed;
  const auto made = tables->StandaloneTable(after - 1);
  PrintTable({0, 0, "table", made->Name(), made, {}}, meanings, options.AsJson);
  return outcome.Untroubled() ? kDone : kFailed;
}

}  // namespace

void AddSummarizeActions(CLI::App& app, Action& action) {
  const auto options = std::make_shared<SummarizeOptions>();
  CLI::App* summarize =
      app.add_subcommand("summarize", "Make a table with a record for each value of a field");
  summarize->add_option("ITEM", options->ItemWord, "A layer or table: its name, or #n")->required();
  summarize->add_option("FIELD", options->FieldWord, "Its alias, name or #n")->required();
  summarize
      ->add_option("--stat", options->Statistics,
                   "A statistic of another field, such as Average:FIELD; may be repeated")
      ->type_name("NAME:FIELD")
      ->expected(1)
      ->take_all();
  auto* selected = summarize->add_flag("--selected", options->Selected, "Selected records only");
  auto* all = summarize->add_flag("--all", options->All, "All records, even with a selection");
  selected->excludes(all);
  summarize->add_option("--output", options->Output, "The table's file (.dbf)")
      ->type_name("PATH")
      ->required();
  const auto json = AddJsonFlag(*summarize);
  summarize->callback([&action, options, json] {
    options->AsJson = *json;
    action = [options](Session& session) { return Summarize(session, *options); };
  });
}

}  // namespace brelmon::cli
