// SPDX-License-Identifier: GPL-2.0-or-later
// Completion for bash.
#include <sstream>

#include "cli/manual/manual.h"

namespace brelmon::cli {
namespace {

constexpr const char* kHead =
    R"(# Completion of brelmon for bash; generated from the program's own options.
_brelmon()
{
    local cur prev words cword
    _init_completion || return

    # The module, the action and what stands behind it.
    local i module= path=
    for ((i = 1; i < cword; i++)); do
        case ${words[i]} in
            --now) ((i++)) ;;
            -*) ;;
            *)
                if [[ -z $module ]]; then
                    module=${words[i]}
                elif [[ -z $path ]]; then
                    path=${words[i]}
                elif [[ $path == @()";

constexpr const char* kMiddle = R"() ]]; then
                    path+=" ${words[i]}"
                fi
                ;;
        esac
    done

    if [[ -z $module && $cur != -* ]]; then
        _filedir '@(qgs|qgz)'
        return
    fi
    local candidates=
    case $path in
)";

constexpr const char* kTail = R"(    esac
    COMPREPLY=($(compgen -W "$candidates" -- "$cur"))
} &&
    complete -F _brelmon brelmon
)";

void AddNames(std::string& line, const std::vector<WordText>& words) {
  for (const WordText& each : words) {
    line += ' ' + each.Name;
  }
}

bool TakesFile(const std::string& word) {
  return word == "FILE" || word == "PATH" || word == "FOLDER";
}

/// What may stand behind the action, and where a file's name may.
void AddCase(std::string& script, const std::string& path, const ActionText& action) {
  std::string candidates, files;
  for (const ActionText& each : action.Actions) candidates += ' ' + each.Name;
  AddNames(candidates, action.OneOf);
  AddNames(candidates, action.Options);
  for (const WordText& each : action.Arguments) {
    for (const std::string& choice : each.Choices) candidates += ' ' + choice;
    if (TakesFile(each.Name)) files += "            [[ $cur != -* ]] && _filedir && return\n";
  }
  for (const WordText& each : action.Options) {
    if (TakesFile(each.Value))
      files += "            [[ $prev == " + each.Name + " ]] && _filedir && return\n";
  }
  script += "        \"" + path + "\")\n" + files;
  script += "            candidates=\"" + candidates.substr(candidates.empty() ? 0 : 1) + "\"\n";
  script += "            ;;\n";
  for (const ActionText& each : action.Actions) {
    if (!path.empty()) AddCase(script, path + " " + each.Name, each);
  }
}

}  // namespace

std::string BashCompletion(const ActionText& program) {
  std::string groups, script;
  for (const ActionText& each : program.Actions) {
    if (!each.Actions.empty()) groups += (groups.empty() ? "" : "|") + each.Name;
  }
  AddCase(script, "", program);
  for (const ActionText& each : program.Actions) AddCase(script, each.Name, each);
  return kHead + groups + kMiddle + script + kTail;
}

}  // namespace brelmon::cli
