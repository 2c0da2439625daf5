// SPDX-License-Identifier: GPL-2.0-or-later
// Completion for zsh.
#include "cli/manual/manual.h"

namespace brelmon::cli {
namespace {

/// As one word of the shell, of which brackets and colons mean nothing to the completion.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char unit : text) {
    if (unit == '[' || unit == ']' || unit == ':') escaped += '\\';
    escaped += unit == '\'' ? "'\\''" : std::string(1, unit);
  }
  return escaped;
}

std::string FilesOf(const std::string& value) {
  if (value == "FOLDER") return "_files -/";
  return value == "FILE" || value == "PATH" ? "_files" : " ";
}

std::string Choices(const WordText& word, const std::string& value) {
  if (word.Choices.empty()) return FilesOf(value);
  std::string choices = "(";
  for (const std::string& each : word.Choices) choices += (choices.size() > 1 ? " " : "") + each;
  return choices + ")";
}

std::string WordOfOption(const WordText& option) {
  std::string text = option.Repeats ? "'*" : "'";
  text += option.Name + "[" + Escaped(option.Help) + "]";
  if (!option.Value.empty()) {
    text += ":" + Escaped(option.Value) + ":" + Choices(option, option.Value);
  }
  return text + "'";
}

void AddWords(std::string& script, const ActionText& action, const std::string& indent) {
  const auto add = [&](const std::string& each) { script += " \\\n" + indent + each; };
  for (const WordText& each : action.OneOf) add(WordOfOption(each));
  for (const WordText& each : action.Options) add(WordOfOption(each));
  for (const WordText& each : action.Arguments) {
    const std::string count = each.Repeats ? "*:" : each.Required ? ":" : "::";
    add("'" + count + each.Name + ":" + Choices(each, each.Name) + "'");
  }
}

void AddDescriptions(std::string& script, const std::vector<ActionText>& actions,
                     const std::string& indent) {
  for (const ActionText& each : actions) {
    script += indent + "'" + each.Name + ":" + Escaped(each.Help) + "'\n";
  }
}

std::string FunctionOf(const std::string& path) {
  std::string name = "_brelmon_" + path;
  for (char& unit : name) {
    if (unit == ' ' || unit == '-') unit = '_';
  }
  return name;
}

void AddFunction(std::string& script, const ActionText& action, const std::string& path) {
  script += "\n" + FunctionOf(path) + "() {\n";
  if (action.Actions.empty()) {
    script += "  _arguments";
    AddWords(script, action, "    ");
    script += "\n}\n";
    return;
  }
  script += "  local -a actions\n  if (( CURRENT == 2 )); then\n    actions=(\n";
  AddDescriptions(script, action.Actions, "      ");
  script += "    )\n    _describe action actions\n    return\n  fi\n  case $words[2] in\n";
  for (const ActionText& each : action.Actions) {
    script += "    " + each.Name + ") shift words; (( CURRENT-- )); " +
              FunctionOf(path + " " + each.Name) + " ;;\n";
  }
  script += "  esac\n}\n";
  for (const ActionText& each : action.Actions) AddFunction(script, each, path + " " + each.Name);
}

}  // namespace

std::string ZshCompletion(const ActionText& program) {
  std::string script =
      "#compdef brelmon\n"
      "# Completion of brelmon for zsh; generated from the program's own options.\n";
  for (const ActionText& each : program.Actions) AddFunction(script, each, each.Name);
  script +=
      "\n_brelmon() {\n"
      "  local curcontext=$curcontext state\n"
      "  local -a actions\n"
      "  _arguments -C";
  for (const WordText& each : program.Options) script += " \\\n    " + WordOfOption(each);
  script +=
      " \\\n    '1:module:_files -g \"*.(qgs|qgz)(-.) *(-/)\"' \\\n"
      "    '*::action:->action'\n"
      "  [[ $state == action ]] || return\n"
      "  if (( CURRENT == 1 )); then\n"
      "    actions=(\n";
  AddDescriptions(script, program.Actions, "      ");
  script += "    )\n    _describe action actions\n    return\n  fi\n  case $words[1] in\n";
  for (const ActionText& each : program.Actions) {
    script += "    " + each.Name + ") " + FunctionOf(each.Name) + " ;;\n";
  }
  return script + "  esac\n}\n\n_brelmon \"$@\"\n";
}

}  // namespace brelmon::cli
