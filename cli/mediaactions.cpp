// SPDX-License-Identifier: GPL-2.0-or-later
// media: the media viewer.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/actions.h"
#include "cli/columns.h"
#include "cli/heldshell.h"
#include "cli/userforms.h"

namespace brelmon::cli {
namespace {

struct Kind {
  const char* Word;
  TextView Option;
};
constexpr Kind kKinds[] = {
    {"all", u"optAll"},           {"movies", u"optMovies"}, {"images", u"optImages"},
    {"websites", u"optWebsites"}, {"earth", u"optText"},    {"excel", u"optExcels"},
    {"word", u"optWords"},        {"pdf", u"optPDFs"},      {"powerpoint", u"optPowerpoints"},
};

struct MediaOptions {
  int Number = 0;
  std::string KindWord = "all";
  bool Open = false;
};

ListBox& ChooseKind(Form& form, const std::string& word) {
  for (const Kind& kind : kKinds) {
    if (word == kind.Word) Get<OptionButton>(form, kind.Option).UserClick();
  }
  return Get<ListBox>(form, u"lbxAll");
}

Outcome AtTheViewer(Session& session, const std::function<void(Form&)>& work) {
  return session.Click(u"cmdMediaViewer", {{u"brelmon_MediaDialog", [&](Form& form) {
                                              work(form);
                                              Dismiss(form);
                                            }}});
}

int List(Session& session, const MediaOptions& options) {
  Columns columns({">number", "name"});
  bool listed = false;
  const Outcome outcome = AtTheViewer(session, [&](Form& form) {
    int number = 0;
    for (const Text& row : RowsOf(ChooseKind(form, options.KindWord))) {
      columns.Add({std::to_string(++number), ToUtf8(row)});
    }
    listed = true;
  });
  if (listed) columns.Print(std::cout);
  return outcome.Untroubled() ? kDone : kFailed;
}

int Open(Session& session, const MediaOptions& options) {
  session.Shell().Hold(options.Open);
  const Outcome outcome = AtTheViewer(session, [&](Form& form) {
    auto& list = ChooseKind(form, options.KindWord);
    if (options.Number < 1 || options.Number > list.ListCount()) {
      throw Refusal("there is no number " + std::to_string(options.Number) + " among " +
                    std::to_string(list.ListCount()) + " media of the kind " + options.KindWord);
    }
    list.UserClick(options.Number - 1);
    Press(form, u"cmdOK", "nothing is chosen");
  });
  if (!outcome.Untroubled()) return kFailed;
  for (const std::string& each : session.Shell().Asked()) {
    std::cout << (options.Open ? "opened: " : "would open: ") << each << '\n';
  }
  return session.Shell().Asked().empty() ? kFailed : kDone;
}

void AddKind(CLI::App& app, MediaOptions& options) {
  std::vector<std::string> words;
  for (const Kind& kind : kKinds) words.emplace_back(kind.Word);
  app.add_option("KIND", options.KindWord, "Kind of media")->check(CLI::IsMember(words));
}

}  // namespace

void AddMediaActions(CLI::App& app, Action& action) {
  const auto options = std::make_shared<MediaOptions>();
  CLI::App* media = app.add_subcommand("media", "List or open what the module brings along");
  media->require_subcommand(1);
  CLI::App* list = media->add_subcommand("list", "List the media of a kind, or all");
  AddKind(*list, *options);
  list->callback([&action, options] {
    action = [options](Session& session) { return List(session, *options); };
  });
  CLI::App* open = media->add_subcommand("open", "Tell what would be opened, or open it");
  open->add_option("N", options->Number, "Number in the list")->required();
  AddKind(*open, *options);
  open->add_flag("--open", options->Open, "Open it with its default program");
  open->callback([&action, options] {
    action = [options](Session& session) { return Open(session, *options); };
  });
}

}  // namespace brelmon::cli
