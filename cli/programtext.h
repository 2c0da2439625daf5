// SPDX-License-Identifier: GPL-2.0-or-later
// What the command line is, as read from its parsers: help, the manual and the completions are
// written from it, so that none of them can fall behind.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace brelmon::cli {

/// An argument, or an option with what stands behind it.
struct WordText {
  std::string Name;   // "ITEM", "--ignore"
  std::string Value;  // of an option: "LIST"; empty for a flag
  std::string Help;
  std::vector<std::string> Choices;  // where only those may stand there
  bool Required = false, Repeats = false;
};

/// The program itself, an action, or what stands behind one.
struct ActionText {
  std::string Name, Help;
  std::vector<WordText> Arguments, Options;
  std::vector<WordText> OneOf;  // options of which exactly one must be given
  std::vector<ActionText> Actions;

  /// "ITEM [TEXT] --new|--add [--filter]".
  std::string Usage() const;
};

ActionText TextOf(const CLI::App& app);

/// A line that can be typed, and what it is good for.
struct Example {
  const char* Line;
  const char* Use;
};
/// The three that help begins with.
const std::vector<Example>& Examples();

struct ExitStatus {
  int Code;
  const char* Meaning;
};
const std::vector<ExitStatus>& Statuses();

/// `program` is its whole text with the actions behind it.
std::string ProgramHelp(const ActionText& program);
/// `before` stands before the action: "brelmon MODULE", and the action that it belongs to.
std::string ActionHelp(const ActionText& action, const std::string& before);

}  // namespace brelmon::cli
