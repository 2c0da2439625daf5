// SPDX-License-Identifier: GPL-2.0-or-later
// Parsers as texts.
#include "cli/programtext.h"

#include <CLI/CLI.hpp>

namespace brelmon::cli {
namespace {

constexpr const char* kUntyped[] = {"TEXT", "INT", ""};

/// "A" and "B" of "TEXT:{A,B}", which is how the parser calls an option with choices.
std::vector<std::string> ChoicesIn(const std::string& type) {
  const auto open = type.find('{'), close = type.rfind('}');
  std::vector<std::string> choices;
  if (open == std::string::npos || close == std::string::npos) return choices;
  std::istringstream list(type.substr(open + 1, close - open - 1));
  for (std::string each; std::getline(list, each, ',');) choices.push_back(each);
  return choices;
}

/// A value without a word of its own is called after its option: --output OUTPUT.
std::string ValueOf(const CLI::Option& option, const std::string& name) {
  if (option.get_items_expected_max() == 0) return {};
  const std::string type = option.get_type_name();
  if (std::find(std::begin(kUntyped), std::end(kUntyped), type) == std::end(kUntyped)) return type;
  std::string value = name.substr(2);
  std::transform(value.begin(), value.end(), value.begin(),
                 [](unsigned char unit) { return static_cast<char>(std::toupper(unit)); });
  return value;
}

WordText WordOf(const CLI::Option& option) {
  WordText word;
  word.Name = option.get_name();
  word.Help = option.get_description();
  word.Required = option.get_required();
  word.Repeats = option.get_expected_max() > 1;
  word.Choices = ChoicesIn(option.get_type_name());
  if (!option.get_positional()) {
    word.Value = ValueOf(option, word.Name);
    word.Repeats =
        word.Repeats || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  }
  return word;
}

std::string Shown(const WordText& word, bool argument) {
  std::string shown = word.Name;
  if (!word.Value.empty()) shown += " " + word.Value;
  if (argument && word.Repeats) shown += "...";
  if (!word.Required) shown = "[" + shown + "]";
  if (!argument && word.Repeats) shown += "...";
  return shown;
}

}  // namespace

std::string ActionText::Usage() const {
  std::string usage;
  const auto add = [&usage](const std::string& part) {
    usage += (usage.empty() ? "" : " ") + part;
  };
  for (const WordText& each : Arguments) add(Shown(each, true));
  std::string choice;
  for (const WordText& each : OneOf) choice += (choice.empty() ? "" : "|") + each.Name;
  if (!choice.empty()) add(choice);
  for (const WordText& each : Options) {
    if (each.Name != "--help") add(Shown(each, false));
  }
  return usage;
}

ActionText TextOf(const CLI::App& app) {
  ActionText text{app.get_name(), app.get_description(), {}, {}, {}, {}};
  for (const CLI::Option* option : app.get_options({})) {
    (option->get_positional() ? text.Arguments : text.Options).push_back(WordOf(*option));
  }
  for (const CLI::App* below : app.get_subcommands([](const CLI::App*) { return true; })) {
    ActionText inner = TextOf(*below);
    if (inner.Name.empty()) {
      // A group, of which one is required; the parser gives it a help of its own.
      text.OneOf = std::move(inner.Options);
      std::erase_if(text.OneOf, [](const WordText& word) { return word.Name == "--help"; });
    } else {
      text.Actions.push_back(std::move(inner));
    }
  }
  return text;
}

const std::vector<Example>& Examples() {
  static const std::vector<Example> examples = {
      {"brelmon earth contents", "what a module holds"},
      {"brelmon earth statistics quakes MAG", "a field's figures, in words"},
      {"brelmon earth query quakes '\"MAG\" > 5' --new", "how many records match"},
  };
  return examples;
}

const std::vector<ExitStatus>& Statuses() {
  static const std::vector<ExitStatus> statuses = {
      {0, "Done."},
      {1, "What was asked did not come about, or its result could not be written out."},
      {2, "The line was not understood; nothing was opened."},
  };
  return statuses;
}

}  // namespace brelmon::cli
