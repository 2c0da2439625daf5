// SPDX-License-Identifier: GPL-2.0-or-later
// Help, the manual's page and the completions: everything in each of them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "cli/commandline.h"
#include "tests/cli/program.h"

namespace brelmon::cli::test {
namespace {

void ExpectFits(const std::string& help) {
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
}

/// Actions without further ones behind them, with their paths.
void ForEachAction(const std::vector<ActionText>& actions, const std::vector<std::string>& before,
                   const std::function<void(const ActionText&, std::vector<std::string>)>& work) {
  for (const ActionText& each : actions) {
    auto path = before;
    path.push_back(each.Name);
    work(each, path);
    ForEachAction(each.Actions, path, work);
  }
}

TEST(Help, BeginsWithThreeExamplesThatWork) {
  const std::string help = Brelmon({"--help"}).out;
  ExpectFits(help);
  std::istringstream lines(help);
  for (int i = 0; i < 3; ++i) {
    std::string line;
    std::getline(lines, line);
    ASSERT_TRUE(line.starts_with("  brelmon earth ")) << line;
    const std::string command = line.substr(2, line.find("  ", 2) - 2);
    const std::string run = "cd " BRELMON_SOURCE_DIR "/samples && brelmon() { " BRELMON_PROGRAM
                            " \"$@\"; }; " +
                            command + " >/dev/null";
    EXPECT_EQ(std::system(run.c_str()), 0) << run;
  }
  std::string blank;
  std::getline(lines, blank);
  EXPECT_EQ(blank, "");
}

TEST(Help, EveryActionTellsAllItTakesWithinEightyColumns) {
  int actions = 0;
  ForEachAction(WholeText().Actions, {}, [&](const ActionText& action, auto path) {
    ++actions;
    path.insert(path.begin(), "nowhere");
    path.push_back("--help");
    const auto said = Brelmon(path);
    EXPECT_EQ(said.status, 0);
    ExpectFits(said.out);
    for (const auto* words : {&action.Arguments, &action.Options, &action.OneOf}) {
      for (const WordText& each : *words) {
        EXPECT_TRUE(Contains(said.out, "\n  " + each.Name + " ")) << each.Name << said.out;
      }
    }
  });
  EXPECT_GT(actions, 25);
}

TEST(Manual, PageAndCompletionsKnowEveryActionAndOption) {
  const std::string page = BytesOf(BRELMON_MANUAL "/brelmon.1");
  const std::string bash = BytesOf(BRELMON_MANUAL "/brelmon");
  const std::string zsh = BytesOf(BRELMON_MANUAL "/_brelmon");
  ForEachAction(WholeText().Actions, {}, [&](const ActionText& action, const auto& path) {
    std::string name;
    for (const std::string& word : path) name += (name.empty() ? "" : " ") + word;
    EXPECT_TRUE(Contains(bash, "\"" + name + "\")")) << name;
    EXPECT_TRUE(Contains(zsh, "'" + action.Name + ":")) << name;
    if (action.Actions.empty()) {
      std::string term = name;
      for (auto at = term.find('-'); at != std::string::npos; at = term.find('-', at + 2)) {
        term.insert(at, "\\");
      }
      EXPECT_TRUE(Contains(page, ".SS \\fB" + term + "\\fR")) << term;
    }
    for (const auto* words : {&action.Options, &action.OneOf}) {
      for (const WordText& each : *words) {
        EXPECT_TRUE(Contains(bash, each.Name)) << each.Name;
        EXPECT_TRUE(Contains(zsh, each.Name + "[")) << each.Name;
      }
    }
  });
  EXPECT_EQ(std::system("bash -n '" BRELMON_MANUAL "/brelmon'"), 0);
}

}  // namespace
}  // namespace brelmon::cli::test
