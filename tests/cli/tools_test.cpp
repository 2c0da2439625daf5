// SPDX-License-Identifier: GPL-2.0-or-later
// The query, Summarize, QuickLoad and media dialogs, the About box and the check, from outside.
#include <gtest/gtest.h>

#include "tests/cli/program.h"

namespace brelmon::cli::test {
namespace {

TEST(Query, CountsWhatItSelectsAndFilters) {
  const auto said = Brelmon({Earth()},
                            "query countries '\"POP_EST\" > 100000000' --new\n"
                            "query countries '\"POP_EST\" > 200000000' --subset\n"
                            "query countries '\"POP_EST\" > 200000000' --new --filter\n"
                            "query countries --clear --filter\n"
                            "query countries --clear\n");
  EXPECT_EQ(said.status, 0) << said.err;
  EXPECT_EQ(said.out,
            "Number of features highlighted = 11\n"
            "Number of features highlighted = 4\n"
            "Number of features displayed = 4\n"
            "Number of features displayed = 177\n"
            "Number of features highlighted = 0\n");
}

TEST(Query, ListsTheValuesOfAField) {
  const auto said = Brelmon({Earth(), "values", "quakes", "NET"});
  EXPECT_TRUE(said.out.starts_with("'ak'\n'ci'\n")) << said.out;
}

TEST(Query, WhatTheSourceRefusesIsTold) {
  const struct {
    std::vector<std::string> words;
    int status;
    const char* told;
  } rows[] = {
      {{"countries", "nonsense >", "--new"}, 1, "[Syntax Error:] Query didn't work!"},
      {{"countries", "NOPE = 1", "--verify"}, 1, "[Syntax Error:] Query didn't work!"},
      {{"countries", "\"POP_EST\" > 5", "--verify"}, 0, "[Query Verified:] "},
      {{"countries", "1 = 1", "--subset"}, 1, "the button Subset is disabled"},
      {{"weather", "1 = 1", "--new"}, 1, "Error Number \n\t91\n"},
  };
  for (auto row : rows) {
    row.words.insert(row.words.begin(), {Earth(), "query"});
    const auto said = Brelmon(row.words);
    EXPECT_EQ(said.status, row.status) << row.told;
    EXPECT_TRUE(Contains(said.err, row.told)) << said.err;
    EXPECT_EQ(said.out.empty(), row.status != 0);
  }
}

TEST(Summarize, MakesTheTableAndTellsItsColumns) {
  const TempFolder folder;
  const std::vector<std::string> words{Earth(),    "summarize",           "quakes", "NET",
                                       "--stat",   "Average:MAG",         "--stat", "last:Place",
                                       "--output", folder.Path("net.dbf")};
  const auto said = Brelmon(words);
  EXPECT_EQ(said.status, 0) << said.err;
  EXPECT_TRUE(said.out.starts_with("table: " + folder.Path("net.dbf") + "\n")) << said.out;
  EXPECT_TRUE(Contains(said.out, "  average of MAG\n"));
  EXPECT_TRUE(Contains(said.out, "  last of Place\n"));
  EXPECT_TRUE(Contains(said.out, "\nci           386  0.895984455958549  "));
  EXPECT_TRUE(std::filesystem::exists(folder.Path("net.dbf")));
  const auto again = Brelmon(words);
  EXPECT_EQ(again.status, 1);
  EXPECT_TRUE(Contains(again.err, "Table already exists!"));
}

TEST(QuickLoad, ShortcutsAreListedAndTaken) {
  const auto list = Brelmon({Earth(), "quickload", "list"});
  EXPECT_EQ(list.status, 0);
  EXPECT_TRUE(Contains(list.out, "query          2       4  Quakes felt at many stations\n"));
  EXPECT_EQ(Brelmon({Earth(), "quickload", "query", "2"}).out, "\"STATIONS\" >= 100\n");
  const auto moved = Brelmon({Earth()}, "quickload frame 2\nquickload layer 1\ncontents\n").out;
  EXPECT_TRUE(Contains(moved, "focus,picked  data frame     Weather and storms")) << moved;
  EXPECT_TRUE(Contains(moved, "\"MAG\" >= 5.5\n"));
  EXPECT_EQ(Brelmon({Earth(), "quickload", "bookmark", "44"}).status, 1);
}

TEST(QuickLoad, EditorsChangeTheFileOrTellWhyNot) {
  const EarthCopy earth;
  const std::string module = earth.Path(), file = earth.Path("QuickLoad.txt");
  EXPECT_EQ(Brelmon({module, "quickload", "add-query", "Big", "\"MAG\" > 6"}).status, 0);
  EXPECT_TRUE(BytesOf(file).ends_with("<Query>\r\nBig\r\n\"MAG\" > 6\r\n"));
  EXPECT_EQ(Brelmon({module, "quickload", "delete", "1", "2", "10"}).status, 0);
  EXPECT_FALSE(Contains(BytesOf(file), "<Layer>"));
  EXPECT_FALSE(Contains(BytesOf(file), "Big"));
  EXPECT_EQ(
      Brelmon({module, "quickload", "add-layer", earth.Path("layers/strong_quakes.qlr")}).status,
      0);
  EXPECT_TRUE(BytesOf(file).ends_with("layers\\strong_quakes.qlr\r\n"));
  const auto outside =
      Brelmon({module, "quickload", "add-layer", Earth() + "/layers/strong_quakes.qlr"});
  EXPECT_EQ(outside.status, 1);
  EXPECT_TRUE(Contains(outside.err, "[Error Report:] There were problems")) << outside.err;

  std::filesystem::remove(file);
  EXPECT_EQ(Brelmon({module, "quickload", "add-bookmark", "Here"}).status, 1);
  EXPECT_EQ(Brelmon({module, "--yes", "quickload", "add-bookmark", "Here"}).status, 0);
  EXPECT_TRUE(BytesOf(file).starts_with("<Bookmark>\r\nHere\r\n"));
}

TEST(Media, OpensOnlyWhenToldTo) {
  const auto list = Brelmon({Earth(), "media", "list", "pdf"});
  EXPECT_EQ(list.out, "number  name\n     1  Worksheet, quakes and storms\n");
  EXPECT_EQ(Brelmon({Earth(), "media", "open", "1", "pdf"}).out,
            "would open: " + Earth() + "/docs/worksheet.pdf\n");
  EXPECT_EQ(Brelmon({Earth(), "media", "open", "2", "pdf"}).status, 1);
  const EarthCopy earth;
  std::filesystem::remove(earth.Path("docs/worksheet.pdf"));
  const auto gone = Brelmon({earth.Path(), "media", "open", "1", "pdf"});
  EXPECT_EQ(gone.status, 1);
  EXPECT_TRUE(Contains(gone.err, "[Unable To Find Media File:] "));
  std::filesystem::remove(earth.Path("media_list.txt"));
  EXPECT_TRUE(Contains(Brelmon({earth.Path(), "media", "list"}).err, "[Media Viewer Cancelled:] "));
}

TEST(Check, FindsInTheSampleWhatIsWrittenBesideIt) {
  const auto said = Brelmon({Earth(), "check"});
  EXPECT_EQ(said.status, 1);  // its empty cells are there on purpose
  EXPECT_EQ(said.out, BytesOf(BRELMON_SOURCE_DIR "/samples/earth-check.txt"));
}

TEST(Check, TellsFindingsAndMendsLineEnds) {
  const EarthCopy earth;
  const std::string module = earth.Path(), file = earth.Path("QuickLoad.txt");
  earth.Write("QuickLoad.txt", "<Query>\nBig\n\"MAG\" > 6\n");
  const auto found = Brelmon({module, "check"});
  EXPECT_EQ(found.status, 1);
  EXPECT_TRUE(Contains(found.out, "QuickLoad.txt:1: ")) << found.out;
  const auto fixed = Brelmon({module, "check", "--fix"});
  EXPECT_TRUE(fixed.out.starts_with("fixed: QuickLoad.txt; the copy is ")) << fixed.out;
  EXPECT_EQ(BytesOf(file), "<Query>\r\nBig\r\n\"MAG\" > 6\r\n");
  EXPECT_FALSE(Contains(fixed.out, "\nQuickLoad.txt:"));
}

}  // namespace
}  // namespace brelmon::cli::test
