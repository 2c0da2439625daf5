// SPDX-License-Identifier: GPL-2.0-or-later
// quickload add-... and delete: the editors of QuickLoad.txt.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "cli/actions.h"
#include "cli/reports.h"
#include "cli/userforms.h"
#include "hosts/common/paths.h"
#include "quickload/QuickLoadMessages.h"

namespace brelmon::cli {
namespace {

using Words = std::vector<std::string>;

/// The file's bytes; nothing where there is none.
std::string FileOf(Session& session) {
  const std::filesystem::path document(session.Host().MapDocument());
  const auto path = host::TrueCase((document.parent_path() / "QuickLoad.txt").string());
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Runs an editor: done if the file is another than before and nothing went wrong.
int Edit(Session& session, TextView className, std::vector<Hands> hands, const Words& files = {}) {
  const std::string before = FileOf(session);
  int complaints = 0;
  hands.push_back(ReadReports(Text(QuickLoadMessages::kErrorReport), &complaints));
  const Outcome outcome = session.Click(className, hands, files);
  const bool done = FileOf(session) != before && outcome.Trails == 0 && complaints == 0;
  return done ? kDone : kFailed;
}

Hands Confirm(TextView form, std::function<void(Form&)> fill) {
  return {Text(form), [fill = std::move(fill)](Form& shown) {
            fill(shown);
            Press(shown, u"OKButton", "a name or text is missing");
            Dismiss(shown);
          }};
}

void Type(Form& form, TextView box, const std::string& text) {
  TypeOver(Get<TextBox>(form, box), FromUtf8(text));
}

int AddBookmark(Session& session, const std::string& name) {
  const auto fill = [&name](Form& form) { Type(form, u"txtName", name); };
  return Edit(session, u"cmdQLAddSpatial", {Confirm(u"frm_InputSpatialBookmark", fill)});
}

int AddQuery(Session& session, const std::string& name, const std::string& text) {
  const auto fill = [&](Form& form) {
    Type(form, u"txtName", name);
    Type(form, u"txtQuery", text);
  };
  return Edit(session, u"cmdQLAddQuery", {Confirm(u"frm_InputQuery", fill)});
}

int AddLayers(Session& session, const Words& files) {
  Words paths;
  for (const std::string& file : files) {
    const std::string path = std::filesystem::absolute(file).lexically_normal().string();
    if (!host::FileExists(host::TrueCase(path))) throw Refusal("there is no file " + file);
    if (!EqualNoCase(FromUtf8(std::filesystem::path(path).extension().string()), u".qlr")) {
      throw Refusal(file + " is no layer file (.qlr)");
    }
    paths.push_back(path);
  }
  return Edit(session, u"cmdQLAddLayer", {}, paths);
}

int Delete(Session& session, const std::vector<int>& numbers) {
  const std::set<int> chosen(numbers.begin(), numbers.end());
  const auto fill = [&chosen](Form& form) {
    auto& list = Get<ListBox>(form, u"lbxReferences");
    for (const int number : chosen) {
      if (number < 1 || number > list.ListCount()) {
        throw Refusal("there is no reference " + std::to_string(number) + " among " +
                      std::to_string(list.ListCount()));
      }
      list.UserClick(number - 1, number != *chosen.begin());
    }
  };
  return Edit(session, u"cmdQLDelete", {Confirm(u"frm_QLDelete", fill)});
}

}  // namespace

void AddQuickLoadEditActions(CLI::App& quickload, Action& action) {
  const auto words = std::make_shared<std::pair<std::string, std::string>>();
  CLI::App* bookmark = quickload.add_subcommand("add-bookmark", "Save the view as a bookmark");
  bookmark->add_option("NAME", words->first, "Its name")->required();
  bookmark->callback([&action, words] {
    action = [words](Session& session) { return AddBookmark(session, words->first); };
  });

  CLI::App* query = quickload.add_subcommand("add-query", "Save a query");
  query->add_option("NAME", words->first, "Its name")->required();
  query->add_option("TEXT", words->second, "The query")->required();
  query->callback([&action, words] {
    action = [words](Session& session) { return AddQuery(session, words->first, words->second); };
  });

  const auto files = std::make_shared<Words>();
  CLI::App* layer = quickload.add_subcommand("add-layer", "Save references to layer files");
  layer->add_option("FILE", *files, "Layer files (.qlr) in the module's folder")->required();
  layer->callback([&action, files] {
    action = [files](Session& session) { return AddLayers(session, *files); };
  });

  const auto numbers = std::make_shared<std::vector<int>>();
  CLI::App* remove = quickload.add_subcommand("delete", "Delete references");
  remove->add_option("N", *numbers, "Numbers in the column delete of quickload list")->required();
  remove->callback([&action, numbers] {
    action = [numbers](Session& session) { return Delete(session, *numbers); };
  });
}

}  // namespace brelmon::cli
