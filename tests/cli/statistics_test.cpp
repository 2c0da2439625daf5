// SPDX-License-Identifier: GPL-2.0-or-later
// statistics from the click to the report.
#include <gtest/gtest.h>

#include "tests/cli/program.h"

namespace brelmon::cli::test {
namespace {

const std::string kNow = "2026-11-16T14:15:07";

int Hits(const std::string& text, const std::string& part) {
  int hits = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++hits;
  return hits;
}

TEST(Statistics, ReportEqualsIndependentFigures) {
  const auto said = Brelmon({Earth(), "--now", kNow, "statistics", "quakes", "MAG", "STATIONS",
                             "--ignore", "-9999", "--decimals", "2"});
  EXPECT_EQ(said.status, 0);
  EXPECT_EQ(said.err, "");
  EXPECT_EQ(said.out, BytesOf(BRELMON_SOURCE_DIR "/tests/cli/expected/quakes-mag-stations.txt"));
}

TEST(Statistics, ATimeHoldsForItsLineAlone) {
  const auto said =
      Brelmon({Earth()}, "--now " + kNow + " statistics quakes MAG\nstatistics quakes MAG\n");
  EXPECT_EQ(Hits(said.out, "Monday, November 16, 2026\n"), 1) << said.out;
}

TEST(Statistics, WhatDoesNotComeAboutIsTold) {
  const struct {
    std::vector<std::string> words;
    const char* told;
  } rows[] = {
      {{"Stations", "ELEV_M"}, "\nThe value is empty: field ELEV_M of \"Stations\", record 11.\n"},
      {{"weather", "TMAX_C"}, "Error Number \n\t91\n"},
      {{"quakes", "MAG", "--ignore", "-9999,x"}, "[Problems with Ignore Values:] "},
      {{"quakes", "MAG", "--selected"}, "no selected records"},
      {{"quakes", "SIG"}, "is hidden"},
      {{"quakes", "NOPE"}, "no field \"NOPE\" of \"quakes\""},
      {{"Atlantic storms", "#2"}, "not in the data frame in focus"},
      {{"Hazards", "X"}, "which has no fields"},
  };
  for (auto row : rows) {
    row.words.insert(row.words.begin(), {Earth(), "statistics"});
    const auto said = Brelmon(row.words);
    EXPECT_EQ(said.status, 1) << row.told;
    EXPECT_EQ(said.out, "") << row.told;
    EXPECT_TRUE(Contains(said.err, row.told)) << said.err;
  }
  const auto gone =
      Brelmon({BRELMON_SOURCE_DIR "/tests/contract/kinds", "statistics", "gone", "X"});
  EXPECT_EQ(gone.status, 1);
  EXPECT_TRUE(Contains(gone.err, "can't be reached")) << gone.err;
}

}  // namespace
}  // namespace brelmon::cli::test
