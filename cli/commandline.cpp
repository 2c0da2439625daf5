// SPDX-License-Identifier: GPL-2.0-or-later
// Parsers for the front and for lines.
#include "cli/commandline.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <new>

#include "cli/programtext.h"
#include "frame/version.h"
#include "hosts/common/clock.h"
#include "hosts/servers/allowed.h"

namespace brelmon::cli {
namespace {

void AddChoices(CLI::App& app, Choices& choices) {
  auto* yes = app.add_flag_callback(
      "--yes", [&choices] { choices.answer = true; }, "Answer all questions with Yes or OK");
  auto* no = app.add_flag_callback(
      "--no", [&choices] { choices.answer = false; }, "Answer all questions with No or Cancel");
  yes->excludes(no);
  app.add_option_function<std::string>(
         "--now",
         [&choices](const std::string& text) {
           choices.now = host::ParseIsoTime(text);
           if (!choices.now) throw CLI::ValidationError("--now", "no time: " + text);
         },
         "Fix the clock")
      ->type_name("2026-11-16T14:15:07");
  app.add_option_function<std::vector<std::string>>(
         "--server",
         [](const std::vector<std::string>& hosts) {
           for (const std::string& host : hosts) servers::AllowServer(host);
         },
         "Allow a module to connect to this server; may stand several times")
      ->type_name("HOST")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
}

/// Help of an action, as its parser tells it.
class HelpOfActions : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string, CLI::AppFormatMode) const override {
    std::string before;
    for (const CLI::App* each = app->get_parent(); each != nullptr; each = each->get_parent()) {
      before = each->get_name() + (before.empty() ? "" : " ") + before;
    }
    return ActionHelp(TextOf(*app), before);
  }
};

void Build(CLI::App& app, Action& action) {
  app.name("brelmon MODULE");
  app.formatter(std::make_shared<HelpOfActions>());  // its actions take it over
  app.set_help_flag("--help", "Tell about an action");
  app.fallthrough();
  app.require_subcommand(1);
  AddToolbarActions(app, action);
  AddContentsActions(app, action);
  AddClickActions(app, action);
  AddStatisticsActions(app, action);
  AddQueryActions(app, action);
  AddSummarizeActions(app, action);
  AddQuickLoadActions(app, action);
  AddMediaActions(app, action);
  AddAboutActions(app, action);
  AddCheckActions(app, action);
  AddPublishActions(app, action);
}

/// What was wrong with a line; an action that isn't there is named with those that are.
std::string FaultOf(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::RequiredError)) return error.what();
  const CLI::App* last = &app;
  while (!last->get_subcommands().empty()) last = last->get_subcommands().front();
  const auto offered = last->get_subcommands({});
  if (offered.empty()) return error.what();
  const auto rest = app.remaining(true);
  std::string fault = rest.empty() ? "an action is missing" : "there is no action " + rest.front();
  fault += ": there are";
  for (const CLI::App* each : offered) fault += " " + each->get_name();
  return fault;
}

/// Prints help or the fault; gives the exit status.
int Tell(const CLI::App& app, const CLI::ParseError& error, const std::string& where,
         const std::string& hint) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(error, std::cout, std::cerr);
    return kDone;
  }
  std::cerr << "brelmon: " << where << FaultOf(app, error) << hint << std::endl;
  return kUsage;
}

std::string VersionText() {
  return "brelmon " + std::to_string(kVersion.Major) + "." + std::to_string(kVersion.Minor) + "." +
         std::to_string(kVersion.Revision);
}

/// The actions with all that stands behind them.
std::vector<ActionText> Actions() {
  CLI::App app;
  Action none;
  Build(app, none);
  return TextOf(app).Actions;
}

class HelpOfProgram : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string, CLI::AppFormatMode) const override {
    ActionText program = TextOf(*app);
    program.Actions = Actions();
    return ProgramHelp(program);
  }
};

void BuildFront(CLI::App& app, Front& front) {
  app.name("brelmon");
  app.formatter(std::make_shared<HelpOfProgram>());
  app.set_help_flag("--help", "Tell about the program");
  app.set_version_flag("--version", VersionText(), "Tell the version");
  app.prefix_command();
  AddChoices(app, front.Given);
  app.add_option("MODULE", front.Module,
                 "A map document (.qgs, .qgz) or a folder that holds exactly one")
      ->required();
}

}  // namespace

Line ParseLine(std::vector<std::string> words, const std::string& where) {
  Line line;
  CLI::App app;
  AddChoices(app, line.Given);
  Build(app, line.Run);
  std::reverse(words.begin(), words.end());  // the parser takes them from the back
  try {
    app.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    line.Run = nullptr;
    line.Ended = Tell(app, error, where, "");
  }
  return line;
}

Front ParseFront(const std::vector<std::string>& arguments) {
  Front front;
  CLI::App app;
  BuildFront(app, front);
  std::vector<std::string> words(arguments.rbegin(), arguments.rend());
  try {
    app.parse(std::move(words));
    front.Words = app.remaining();
  } catch (const CLI::ParseError& error) {
    front.Ended = Tell(app, error, "", " (brelmon --help tells more)");
  }
  return front;
}

ActionText WholeText() {
  CLI::App app;
  Front front;
  BuildFront(app, front);
  ActionText program = TextOf(app);
  program.Actions = Actions();
  return program;
}

std::vector<std::string> ActionNames(const std::string& action) {
  std::vector<std::string> names;
  for (const ActionText& each : Actions()) {
    if (action.empty()) names.push_back(each.Name);
    if (each.Name != action) continue;
    for (const ActionText& behind : each.Actions) names.push_back(behind.Name);
  }
  return names;
}

int RunLine(Session& session, const Line& line, const Choices& outer, const std::string& where) {
  if (!line.Run) return line.Ended;
  session.Use(line.Given.Over(outer));
  int status = kFailed;
  std::string reason;
  try {
    status = line.Run(session);
  } catch (const Failure& failure) {
    reason = ToUtf8(failure.Description) + " (" + std::to_string(failure.Number) + ")";
  } catch (const std::bad_alloc&) {
    reason = "there is not enough memory";
  } catch (const std::exception& other) {
    reason = other.what();
  }
  std::cout << std::flush;
  if (!reason.empty()) std::cerr << "brelmon: " << where << reason << std::endl;
  return status;
}

}  // namespace brelmon::cli
