// SPDX-License-Identifier: GPL-2.0-or-later
// Opening modules, usage, sessions, listings, clicks.
#include <gtest/gtest.h>

#include "tests/cli/program.h"

namespace brelmon::cli::test {
namespace {

TEST(Front, UsageIsStatusTwoAndOpensNothing) {
  const std::vector<std::vector<std::string>> rows = {
      {},
      {"--nope"},
      {"nowhere", "nonsense"},
      {"nowhere", "fields"},
      {"nowhere", "statistics", "quakes", "MAG", "--selected", "--all"},
      {"nowhere", "query", "quakes", "--new"},
      {"nowhere", "query", "quakes", "1=1", "--new", "--add"},
      {"nowhere", "--yes", "--no", "contents"},
      {"nowhere", "--now", "yesterday", "contents"},
  };
  for (const auto& words : rows) {
    const auto said = Brelmon(words);
    EXPECT_EQ(said.status, 2) << testing::PrintToString(words);
    EXPECT_TRUE(said.err.starts_with("brelmon: ")) << said.err;
    EXPECT_EQ(said.out, "");
  }
}

TEST(Front, HelpAndVersionNeedNoModule) {
  const auto help = Brelmon({"--help"});
  EXPECT_EQ(help.status, 0);
  for (const char* action : {"toolbar", "commands", "contents", "fields", "frame", "tab", "pick",
                             "graphic", "click", "statistics", "values", "query", "summarize",
                             "quickload", "media", "about", "check", "publish"}) {
    EXPECT_TRUE(Contains(help.out, std::string("\n  ") + action + " ")) << action;
  }
  EXPECT_EQ(Brelmon({"--version"}).out, "brelmon 1.9.59\n");
  EXPECT_EQ(Brelmon({"nowhere", "statistics", "--help"}).status, 0);
}

TEST(Module, OneThatCannotBeOpenedIsTold) {
  const TempFolder folder;
  const auto refused = [](const std::string& module, const std::string& told) {
    const auto said = Brelmon({module, "contents"});
    EXPECT_EQ(said.status, 1);
    EXPECT_TRUE(said.err.starts_with("brelmon: ") && Contains(said.err, told)) << said.err;
  };
  refused(folder.Path("nowhere"), "nowhere");
  refused(folder.Path(), folder.Path());
  folder.Write("one.qgs", "<qgis><broken");
  refused(folder.Path(), "one.qgs");
  folder.Write("two.qgs", "<qgis/>");
  refused(folder.Path(), folder.Path());
}

TEST(Session, GoesOnAfterFaultsAndEndsWithTheWorst) {
  const auto said = Brelmon({Earth()},
                            "# nothing yet\n\n"
                            "fields nope\n"
                            "pick 'quakes\n"
                            "tab Display\n"
                            "exit\n"
                            "nonsense\n");
  EXPECT_EQ(said.status, 2);
  EXPECT_EQ(said.out, "");
  EXPECT_EQ(said.err,
            "brelmon: line 3: there is no item \"nope\"\n"
            "brelmon: line 4: no closing '\n");
  EXPECT_EQ(Brelmon({Earth()}, "fields nope\ncontents").status, 1);
  EXPECT_EQ(Brelmon({Earth()}, "").status, 0);
}

std::string StateOf(const std::string& listing, const std::string& className) {
  const auto at = listing.find(" " + className + " ");
  const auto end = listing.find('\n', at);
  const std::string line = listing.substr(at, end - at);
  return Contains(line, "  disabled") ? "disabled" : Contains(line, "  enabled") ? "enabled" : "";
}

TEST(ToolBar, ListsTwelveWithTheirMarksAndStates) {
  const auto bare = Brelmon({Earth(), "toolbar"}).out;
  EXPECT_EQ(std::count(bare.begin(), bare.end(), '\n'), 13);
  const auto picked = Brelmon({Earth()}, "pick quakes\ntoolbar\n").out;
  const auto inTab = Brelmon({Earth()}, "pick quakes\ntab Selection\ntoolbar\n").out;
  for (const char* name : {"OpenTable", "cmdSelectSwitch", "cmdDeleteSelLayers"}) {
    EXPECT_EQ(StateOf(bare, name), "disabled") << name;
    EXPECT_EQ(StateOf(picked, name), "enabled") << name;
    EXPECT_EQ(StateOf(inTab, name), "disabled") << name;
  }
  EXPECT_EQ(StateOf(inTab, "cmdStats"), "enabled");
}

TEST(Contents, MarksWhatIsPickedAndCountsWhatIsSelected) {
  const auto said = Brelmon({Earth()}, "pick quakes #8\nclick cmdSelectAll\ncontents\n").out;
  EXPECT_TRUE(Contains(said, "     1  focus   data frame "));
  EXPECT_TRUE(
      Contains(said, "     2  picked  feature layer    quakes            valid   1707      1707\n"))
      << said;
  EXPECT_TRUE(Contains(
      said, "     8  picked  table            weather           valid   2922      2922\n"));
  const auto kinds = Brelmon({BRELMON_SOURCE_DIR "/tests/contract/kinds", "contents"}).out;
  EXPECT_TRUE(Contains(kinds, "  gone    invalid     -         -\n")) << kinds;
}

TEST(Frame, TakesTheFocusAndTheSelectionAlong) {
  const auto said = Brelmon({Earth()},
                            "pick quakes\nframe \"weather and storms\"\ncontents\ntoolbar\n"
                            "statistics storms WIND_KT\n");
  EXPECT_TRUE(Contains(said.out, "focus,picked  data frame     Weather and storms")) << said.out;
  EXPECT_EQ(StateOf(said.out, "OpenTable"), "disabled");
  EXPECT_EQ(StateOf(said.out, "cmdDeleteSelLayers"), "enabled");
  EXPECT_EQ(Brelmon({Earth(), "frame", "quakes"}).status, 1);
}

TEST(Click, IsRefusedWhereAUserCouldNotOrWouldNeedAForm) {
  const struct {
    const char* lines;
    const char* told;
  } rows[] = {
      {"click OpenTable", "OpenTable is disabled"},
      {"click cmdStats", "use the action statistics"},
      {"click cmdSelByLocation", "none without a screen"},
      {"click nope", "no command \"nope\""},
      {"pick quakes\nclick cmdDeleteSelLayers", "[Confirm Deletion:] Please click 'OK'"},
      {"pick Hazards\nclick cmdSelByGraphic", ""},
  };
  for (const auto& [lines, told] : rows) {
    const auto said = Brelmon({Earth()}, lines);
    EXPECT_EQ(said.status, 1) << lines;
    EXPECT_TRUE(Contains(said.err, told)) << said.err;
  }
}

TEST(Click, QuestionsTakeTheAnswerGiven) {
  const auto said = Brelmon({Earth()},
                            "pick quakes\nclick cmdDeleteSelLayers --no\nfields quakes\n"
                            "--yes click cmdDeleteSelLayers\nfields quakes\n");
  EXPECT_EQ(said.status, 1);
  EXPECT_TRUE(Contains(said.out, "DEPTH_KM"));
  EXPECT_TRUE(said.err.ends_with("brelmon: line 5: there is no item \"quakes\"\n")) << said.err;
}

}  // namespace
}  // namespace brelmon::cli::test
