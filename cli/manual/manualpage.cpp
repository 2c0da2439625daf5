// SPDX-License-Identifier: GPL-2.0-or-later
// The page of the manual, in man's own macros.
#include "cli/manual/manual.h"

namespace brelmon::cli {
namespace {

struct Named {
  const char* Name;
  const char* Text;
};

constexpr Named kEnvironment[] = {
    {"BRELMON_NOW", "Fixes the clock, as --now does."},
    {"BRELMON_LOCALE", "The locale of numbers and dates in place of the system's, such as de_DE."},
    {"BRELMON_PRINTER", "A file to print to."},
    {"BRELMON_OPENER",
     "A program in place of xdg-open for what media open --open opens. It is given the path and "
     "the "
     "module's folder."},
    {"BRELMON_WEB", "The folder of the page that publish copies."},
};

constexpr Named kFiles[] = {
    {"QuickLoad.txt", "Shortcuts of a module: layers, saved queries and bookmarks."},
    {"media_list.txt", "Media of a module."},
};

/// Text as man takes it: a hyphen that can be copied, no request at a line's head.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char unit : text) {
    if (unit == '\\') {
      escaped += "\\e";
    } else if (unit == '-') {
      escaped += "\\-";
    } else if (unit == '"') {
      escaped += "\\(dq";
    } else if (unit == '\'') {
      escaped += "\\(aq";
    } else {
      escaped += unit;
    }
  }
  return escaped;
}

std::string Bold(const std::string& text) { return "\\fB" + Escaped(text) + "\\fR"; }
std::string Slanted(const std::string& text) { return "\\fI" + Escaped(text) + "\\fR"; }

/// Options bold, what the user puts in slanted; brackets and bars as they are.
std::string Usage(const std::string& usage) {
  std::string shown, word;
  const auto end = [&] {
    if (word.empty()) return;
    const auto last = word.find_last_not_of('.');
    const std::string name = word.substr(0, last + 1);
    shown += (name.starts_with("-") ? Bold(name) : Slanted(name)) + word.substr(last + 1);
    word.clear();
  };
  for (const char unit : usage) {
    if (std::string_view(" []|").find(unit) == std::string_view::npos) {
      word += unit;
      continue;
    }
    end();
    shown += unit;
  }
  end();
  return shown;
}

/// A term over its text.
void AddTerm(std::string& page, const std::string& term, const std::string& text) {
  page += ".TP\n" + term + "\n" + Escaped(text) + ".\n";
}

std::string Help(const WordText& word) {
  std::string help = word.Help;
  if (!word.Choices.empty()) {
    help += ": ";
    for (const std::string& each : word.Choices) {
      help += each + (&each == &word.Choices.back() ? "" : ", ");
    }
  }
  return help;
}

void AddWords(std::string& page, const ActionText& action) {
  for (const WordText& each : action.Arguments) AddTerm(page, Slanted(each.Name), Help(each));
  for (const auto* options : {&action.OneOf, &action.Options}) {
    for (const WordText& each : *options) {
      if (each.Name == "--help") continue;
      std::string term = Bold(each.Name);
      if (!each.Value.empty() && each.Choices.empty()) term += " " + Slanted(each.Value);
      AddTerm(page, term, Help(each));
    }
  }
}

void AddAction(std::string& page, const ActionText& action, const std::string& before) {
  const std::string name = before + action.Name;
  if (!action.Actions.empty()) {
    for (const ActionText& each : action.Actions) AddAction(page, each, name + " ");
    return;
  }
  page += ".SS " + Bold(name) + " " + Usage(action.Usage()) + "\n" + Escaped(action.Help) + ".\n";
  AddWords(page, action);
}

}  // namespace

std::string ManualPage(const ActionText& program, const std::string& version) {
  std::string page =
      ".\\\" Generated from the program's own options.\n"
      ".TH BRELMON 1 \"\" \"brelmon " +
      version +
      "\" \"Brelmon Tools\"\n"
      ".nh\n"
      ".ad l\n"
      ".SH NAME\n"
      "brelmon \\- learning tools for maps, on the command line\n"
      ".SH SYNOPSIS\n"
      ".B brelmon\n"
      "[\\fIOPTION\\fR...] \\fIMODULE\\fR \\fIACTION\\fR [\\fIWORD\\fR...]\n"
      ".br\n"
      ".B brelmon\n"
      "[\\fIOPTION\\fR...] \\fIMODULE\\fR\n"
      ".SH DESCRIPTION\n"
      "Every button of the toolbar Brelmon Tools is an action: tables, queries, statistics in "
      "plain\n"
      "words, summary tables, and the shortcuts that the author of a learning module has "
      "prepared.\n"
      ".PP\n"
      "Without an action,\n"
      ".B brelmon\n"
      "opens a session: actions from standard input, one a line, in which selections, filters and\n"
      "settings last. Words are quoted as in a shell, and # begins a comment. At a terminal it\n"
      "prompts, keeps a history and completes names.\n"
      ".PP\n"
      "An \\fIITEM\\fR or \\fIFIELD\\fR is a name, or \\fB#\\fR\\fIn\\fR, its number in the "
      "listing; a name that\n"
      "stands twice is refused.\n"
      ".SH EXAMPLES\n";
  for (const Example& each : Examples()) {
    page += ".TP\n" + Bold(each.Line) + "\n" + Escaped(each.Use) + ".\n";
  }
  page += ".SH OPTIONS\n";
  AddWords(page, program);
  page += ".SH ACTIONS\n";
  for (const ActionText& each : program.Actions) AddAction(page, each, "");
  page += ".SH EXIT STATUS\n";
  for (const ExitStatus& each : Statuses()) {
    page += ".TP\n.B " + std::to_string(each.Code) + "\n" + Escaped(each.Meaning) + "\n";
  }
  page += ".SH ENVIRONMENT\n";
  for (const Named& each : kEnvironment) {
    page += ".TP\n.B " + Escaped(each.Name) + "\n" + Escaped(each.Text) + "\n";
  }
  page += ".SH FILES\n";
  for (const Named& each : kFiles) {
    page += ".TP\n.I " + Escaped(each.Name) + "\n" + Escaped(each.Text) + "\n";
  }
  return page;
}

}  // namespace brelmon::cli
