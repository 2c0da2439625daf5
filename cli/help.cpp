// SPDX-License-Identifier: GPL-2.0-or-later
// What --help prints, within 80 columns.
#include <algorithm>
#include <sstream>

#include "cli/programtext.h"

namespace brelmon::cli {
namespace {

constexpr std::size_t kWidth = 80;

/// Appends words from column `indent` on, below each other where they don't fit; the first line has
/// something at its head already.
void Wrap(std::string& out, const std::string& text, std::size_t indent) {
  std::size_t column = out.size() - (out.rfind('\n') + 1);
  std::istringstream words(text);
  bool first = true;
  for (std::string word; words >> word; first = false) {
    if (!first && column + 1 + word.size() > kWidth) {
      out += '\n' + std::string(indent, ' ');
      column = indent;
    } else if (!first) {
      out += ' ';
      ++column;
    }
    out += word;
    column += word.size();
  }
  out += '\n';
}

struct Row {
  std::string Head, Text;
};

/// Heads in a column of their own, texts beside them; a head too long for it has a line of its own.
void AddRows(std::string& out, const std::string& title, const std::vector<Row>& rows) {
  constexpr std::size_t kMostHead = 26;
  if (rows.empty()) return;
  std::size_t widest = 0;
  for (const Row& row : rows) {
    if (row.Head.size() <= kMostHead) widest = std::max(widest, row.Head.size());
  }
  const std::size_t indent = widest + 4;
  out += '\n' + title + ":\n";
  for (const Row& row : rows) {
    out += "  " + row.Head;
    out += row.Head.size() > widest ? '\n' + std::string(indent, ' ')
                                    : std::string(indent - 2 - row.Head.size(), ' ');
    Wrap(out, row.Text, indent);
  }
}

Row RowOf(const WordText& word) {
  std::string help = word.Help;
  if (!word.Choices.empty()) {
    help += ": ";
    for (const std::string& each : word.Choices) {
      help += each + (&each == &word.Choices.back() ? "" : ", ");
    }
  }
  const bool choices = !word.Choices.empty() || word.Value.empty();
  return {choices ? word.Name : word.Name + " " + word.Value, help};
}

void AddWords(std::string& out, const std::string& title, const std::vector<WordText>& words) {
  std::vector<Row> rows;
  for (const WordText& each : words) rows.push_back(RowOf(each));
  AddRows(out, title, rows);
}

void AddActions(std::string& out, const std::string& title,
                const std::vector<ActionText>& actions) {
  std::vector<Row> rows;
  for (const ActionText& each : actions) rows.push_back({each.Name, each.Help});
  AddRows(out, title, rows);
}

}  // namespace

std::string ProgramHelp(const ActionText& program) {
  std::vector<Row> statuses;
  for (const ExitStatus& each : Statuses())
    statuses.push_back({std::to_string(each.Code), each.Meaning});
  std::string out;
  std::size_t widest = 0;
  for (const Example& each : Examples()) widest = std::max(widest, std::string(each.Line).size());
  for (const Example& each : Examples()) {
    const std::string line = each.Line;
    out += "  " + line + std::string(widest + 2 - line.size(), ' ') + each.Use + '\n';
  }
  out +=
      "\nUsage:\n"
      "  brelmon [OPTION...] MODULE ACTION [WORD...]  one action\n"
      "  brelmon [OPTION...] MODULE                   a session: actions from standard\n"
      "                                               input, one a line\n";
  AddWords(out, "Arguments", program.Arguments);
  AddWords(out, "Options", program.Options);
  AddActions(out, "Actions (brelmon MODULE ACTION --help tells more)", program.Actions);
  AddRows(out, "Exit status", statuses);
  return out;
}

std::string ActionHelp(const ActionText& action, const std::string& before) {
  std::string out;
  if (!action.Help.empty()) Wrap(out, action.Help, 0);
  const std::string name = before + (before.empty() ? "" : " ") + action.Name + " ";
  out += "\nUsage:\n  " + name;
  Wrap(out, action.Actions.empty() ? action.Usage() : "ACTION [WORD...]", 6);
  AddWords(out, "Arguments", action.Arguments);
  AddWords(out, "Exactly one of", action.OneOf);
  AddWords(out, "Options", action.Options);
  AddActions(out, "Actions (" + name + "ACTION --help tells more)", action.Actions);
  return out;
}

}  // namespace brelmon::cli
