// SPDX-License-Identifier: GPL-2.0-or-later
// The statistics flow from the click to the report, for the command and for dialogs.
#include "statistics/cmdStats.h"

#include <gtest/gtest.h>

#include <sstream>

#include "statistics/brelmon_themeiddialog.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeLayer;
using test::FakeWorld;
using test::Row;

const std::string kRule = std::string(74, '-') + "\r\n";
const std::string kEnd = "Analysis Complete:   2:15:07 PM\r\nMonday, November 16, 2026";

struct Answer {
  std::vector<std::int32_t> fields = {0};
  Text ignored = {};  // none if empty
  bool all = true;
  int decimals = 2;
};

class StatisticsFlow : public testing::Test {
 protected:
  StatisticsFlow() {
    command->OnCreate(world.application);
    tracts = AddLayer({{1.0, 5.0}, {2.0, 5.0}, {2.0, 7.0}, {3.0, 0.0}, {10.0, -9999.0}});
    world.users[u"frmReport_modal"] = [this](Form& form) {
      modal = dynamic_cast<frmReport_modal&>(form).txtReport.Text();
      form.UserClose();
    };
    Will({});
  }
  Ref<FakeLayer> AddLayer(std::vector<Row> rows) {
    auto layer = world.map->AddFeatureLayer(
        u"Tracts", {{u"DENS", FieldType::Double, u"Density"}, {u"POP", FieldType::Integer}},
        std::move(rows));
    world.document->Pick({layer});
    return layer;
  }
  void Will(Answer answer) {
    world.users[u"brelmon_ThemeIDDialog"] = [this, answer](Form& form) {
      auto& dialog = dynamic_cast<brelmon_ThemeIDDialog&>(form);
      opened = dialog.Dump();
      for (const std::int32_t field : answer.fields) dialog.lbxField.UserClick(field, true);
      if (answer.fields.empty()) dialog.cmdOK.SetEnabled(true);  // clicked on and off again
      if (answer.all) dialog.optAll.UserClick();
      dialog.chkNoData.SetValue(answer.ignored.empty() ? 0 : 1);
      if (!answer.ignored.empty()) dialog.txtNoData.SetText(answer.ignored);
      dialog.cbxDecPlaces.UserChoose(answer.decimals);
      dialog.cmdOK.UserClick();
    };
  }
  /// The report of a click; empty if none is on the screen.
  std::string Click() {
    command->OnClick();
    if (world.frames.empty() || !world.frames.back()->Visible()) return {};
    EXPECT_EQ(world.frames.size(), 1u);
    return ToUtf8(command->ReportWindow()->txtReport.Text());
  }
  /// The clause of the first search, with its brackets.
  std::string Searched() const {
    for (const std::string& entry : world.log) {
      if (entry.starts_with("Search ")) return entry.substr(7, entry.rfind(' ') - 7);
    }
    return {};
  }
  void ExpectFailure(int number) { EXPECT_EQ(FailureIn(world), number) << Trails(world); }

  FakeWorld world;
  Ref<cmdStats> command = New<cmdStats>();
  Ref<FakeLayer> tracts;
  Text opened, modal;
};

std::string Block(const std::string& heading, const std::vector<std::string>& texts) {
  std::istringstream labels(
      "Total,Mean,Median,Mode,Minimum,Maximum,Range,Standard Error of Mean,Variance,"
      "Standard Deviation,Number of Records");
  std::string block = "Statistics on Field " + heading + kRule;
  std::string label;
  for (const std::string& text : texts) {
    std::getline(labels, label, ',');
    block += "  " + label + ": " + text + "\r\n";
  }
  return block + "  Empty/Null Values: 0\r\n" + kRule + "\r\n";
}

const std::string kDensity = Block("\"Density\" in Tracts:\r\n   --> All Records Analyzed...\r\n",
                                   {"18", "3.6", "2", "1 mode found [2 cases]: Value = 2", "1",
                                    "10", "9", "1.631", "13.3", "3.6469", "5"});

TEST_F(StatisticsFlow, ReportsOneField) {
  EXPECT_EQ(Click(), kDensity + kEnd);
  EXPECT_EQ(world.frames[0]->Caption(), u"Statistics Report:");
  const test::Log expected = {
      "Search [] recycling",
      "Pointer 11",
      "Bar [Gathering values from field [DENS] in Tracts] 1..5 by 1 one panel",
      "Bar hidden after 5",
      "Pointer 11",
      "Bar [Calculating Statistics on field [DENS] in Tracts] 1..9 by 1 one panel",
      "Bar hidden after 15",
      "Pointer 0",
      "Bar hidden after 0",
      "Pointer 0"};
  ASSERT_GE(world.log.size(), expected.size());
  EXPECT_EQ(test::Log(world.log.begin(), world.log.begin() + 10), expected);
  EXPECT_EQ(Trails(world), "");
}

TEST_F(StatisticsFlow, ExtremesTakeTheDecimalsAskedFor) {
  tracts->rows = {{1.23456, 0.0}, {9.87654, 0.0}};
  const std::string report = Click();
  EXPECT_NE(report.find("  Minimum: 1.23\r\n  Maximum: 9.88\r\n  Range: 8.64\r\n"),
            std::string::npos)
      << report;
}

TEST_F(StatisticsFlow, ReportsTwoFieldsAndTheIgnoredValuesOnce) {
  Will({.fields = {0, 1}, .ignored = u"-9999, 0", .decimals = 0});
  const std::string heading = " in Tracts:\r\n   --> All Records Analyzed...\r\n";
  EXPECT_EQ(Click(),
            Block("\"Density\"" + heading, {"18", "4", "2", "1 mode found [2 cases]: Value = 2",
                                            "1", "10", "9", "1.63", "13.3", "3.65", "5"}) +
                Block("\"POP\"" + heading, {"17", "6", "5", "1 mode found [2 cases]: Value = 5",
                                            "5", "7", "2", "0.67", "1.33", "1.15", "3"}) +
                "The following values were ignored in the analysis:\r\n --> -9999\r\n --> 0\r\n" +
                kRule + kEnd);
}

TEST_F(StatisticsFlow, EncloseFieldNamesAsTheSourceWantsThem) {
  Will({.fields = {1}, .ignored = u"-9999,0"});
  for (const auto& [type, field] :
       std::vector<std::pair<Text, std::string>>{{u"Personal Geodatabase Feature Class", "[POP]"},
                                                 {u"SDE Feature Class", "POP"},
                                                 {u"ArcIMS Feature Class", "POP"},
                                                 {u"personal geodatabase feature class", "\"POP\""},
                                                 {u"Old SDE Feature Class", "\"POP\""}}) {
    tracts->dataSourceType = type;
    world.log.clear();
    Click();
    EXPECT_EQ(Searched(), "[" + field + " <> -9999 AND " + field + " <> 0]");
  }
}

TEST_F(StatisticsFlow, ANullEndsTheRunAndLeavesHourglassAndBar) {
  tracts->rows[1][0] = Null{};
  EXPECT_EQ(Click(), "");
  ExpectFailure(94);
  EXPECT_EQ(world.pointer, Pointer::Hourglass);
  EXPECT_TRUE(world.log[2].starts_with("Bar [Gathering")) << world.log[2];
  EXPECT_EQ(world.log[3], "NewErrorDialog");
}

TEST_F(StatisticsFlow, AStandaloneTableEndsTheRunUnlessNoFieldIsChosen) {
  const auto table = world.map->AddTable(u"Rain", {{u"MM"}}, {{1.0}, {2.0}});
  table->sourceDescription = u"Personal geodatabase";
  world.document->Pick({table});
  EXPECT_EQ(Click(), "");
  ExpectFailure(91);
  Will({.fields = {}});
  EXPECT_EQ(Click(), kEnd);
}

TEST_F(StatisticsFlow, NothingLeftInALaterFieldIsReportedAsNoValue) {
  for (Row& row : tracts->rows) row[1] = -9999;
  Will({.fields = {0, 1}, .ignored = u"-9999"});
  EXPECT_NE(Click().find(Block("\"POP\" in Tracts:\r\n   --> All Records Analyzed...\r\n",
                               {"0", "-9,999", "-9,999", "< No Mode Found >", "-9,999", "-9,999",
                                "0", "-9,999", "-9,999", "-9,999", "0"})),
            std::string::npos);
}

TEST_F(StatisticsFlow, NothingLeftOfASelectionIsOutOfBounds) {
  tracts->selected = {3};
  Will({.fields = {0}, .ignored = u"3", .all = false});
  EXPECT_EQ(Click(), "");
  ExpectFailure(9);
}

TEST_F(StatisticsFlow, DecimalsThatTheListLacksAreShownAsTyped) {
  world.users[u"brelmon_ThemeIDDialog"] = [this](Form& form) {
    auto& dialog = dynamic_cast<brelmon_ThemeIDDialog&>(form);
    opened = dialog.Dump();
    dialog.lbxField.UserClick(0);
    dialog.cbxDecPlaces.UserType(u"7");
    dialog.cmdOK.UserClick();
  };
  for (const char16_t* shown : {u"text=\"2\"", u"text=\"7\""}) {
    EXPECT_NE(Click().find("  Standard Error of Mean: 1.630950643\r\n"), std::string::npos);
    EXPECT_NE(opened.find(shown), Text::npos) << ToUtf8(opened);
  }
}

TEST_F(StatisticsFlow, ACancelOrAFailureInTheEngineChangesNothingElse) {
  world.users[u"brelmon_ThemeIDDialog"] = [](Form& form) {
    dynamic_cast<brelmon_ThemeIDDialog&>(form).txtNoData.SetText(u"5");
    form.UserEscape();
  };
  EXPECT_EQ(Click(), "");
  EXPECT_TRUE(world.log.empty());
  Will({});
  for (Row& row : tracts->rows) row[0] = 1e308;
  EXPECT_NE(Click().find("  Total: 0\r\n"), std::string::npos);  // and on it goes, without results
  EXPECT_NE(opened.find(u"text=\"-9999\""), Text::npos);
  EXPECT_NE(Trails(world).find("\tStatsFromArray "), std::string::npos);
}

TEST_F(StatisticsFlow, OfADialogDiffersInFourPoints) {
  tracts->dataSourceType = u"SDE Feature Class";
  Will({.fields = {0}, .ignored = u"10"});
  StatisticsDefaults defaults;
  Ref<frmReport_modal> report;
  for (int run = 0; run < 2; ++run) {
    world.log.clear();
    RunDialogStatistics(world.application, tracts, defaults, report);
    EXPECT_NE(opened.find(u"rows=1: >\"Tracts\"\n"), Text::npos);
    EXPECT_EQ(ToUtf8(modal), kDensity + "The following values were ignored in the analysis:\r\n" +
                                 " --> 10\r\n" + std::string(58, '-') + "\r\n" + kEnd);
    EXPECT_TRUE(report);
    EXPECT_TRUE(world.frames.empty());
    EXPECT_EQ(Searched(), "[]");
  }
  EXPECT_EQ(defaults.ExcludeText, u"10");
}

}  // namespace
}  // namespace brelmon
