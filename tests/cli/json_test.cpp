// SPDX-License-Identifier: GPL-2.0-or-later
// JSON Lines say what the forms for people say.
#include <gtest/gtest.h>
#include <algorithm>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/cli/program.h"

namespace brelmon::cli::test {
namespace {

using nlohmann::json;

struct Records {
  Said Of;
  std::vector<json> All;  // without the head
  std::vector<json> Kind(const std::string& kind) const {
    std::vector<json> found;
    for (const json& each : All) {
      if (each["record"] == kind) found.push_back(each);
    }
    return found;
  }
};

/// Of one action in a session on `module`; its head is looked at.
Records Ask(const std::string& module, const std::string& line) {
  Records records{Brelmon({module}, line + " --json\n"), {}};
  std::istringstream lines(records.Of.out);
  for (std::string each; std::getline(lines, each);) records.All.push_back(json::parse(each));
  if (records.All.empty()) {
    ADD_FAILURE() << line << records.Of.err;
    return records;
  }
  const json head = records.All.front();
  EXPECT_EQ(head["record"], "head");
  EXPECT_EQ(head["version"], 1);
  EXPECT_EQ(head["action"], line.substr(0, line.find(' ')));
  records.All.erase(records.All.begin());
  return records;
}

std::size_t LinesOf(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(Json, ListingsHoldWhatTheColumnsHold) {
  const struct {
    const char* line;
    const char* kind;
    std::size_t headings;
  } rows[] = {{"contents", "item", 1},
              {"fields quakes", "field", 1},
              {"toolbar", "button", 1},
              {"values quakes NET", "value", 0},
              {"check", "finding", 0}};
  for (const auto& [line, kind, headings] : rows) {
    const auto records = Ask(Earth(), line);
    const auto plain = Brelmon({Earth()}, std::string(line) + "\n");
    EXPECT_EQ(records.Of.status, plain.status) << line;
    ASSERT_EQ(records.Kind(kind).size(), LinesOf(plain.out) - headings) << line;
    std::istringstream lines(plain.out);
    std::string skipped;
    for (std::size_t i = 0; i < headings; ++i) std::getline(lines, skipped);
    for (const json& each : records.Kind(kind)) {
      std::string shown;
      std::getline(lines, shown);
      for (const auto& [key, value] : each.items()) {
        if (key == "record" || key == "problem" || (value.is_string() && value == "")) continue;
        if (value.is_boolean() || value.is_null() || key == "depth") continue;
        const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
        EXPECT_TRUE(Contains(shown, text)) << line << ' ' << key << ": " << shown;
      }
    }
  }
  const auto items = Ask(Earth(), "contents").Kind("item");
  EXPECT_EQ(items[0]["focus"], true);
  EXPECT_EQ(items[0]["rows"], nullptr);
  EXPECT_EQ(items[1]["rows"], 1707);
  const auto kinds = Ask(BRELMON_SOURCE_DIR "/tests/contract/kinds", "contents").Kind("item");
  const auto gone = std::find_if(kinds.begin(), kinds.end(),
                                 [](const json& item) { return item["name"] == "gone"; });
  ASSERT_NE(gone, kinds.end());
  EXPECT_EQ((*gone)["valid"], false);
  EXPECT_EQ((*gone)["problem"], "there is no such file");
}

TEST(Json, FiguresAreTheReports) {
  const auto records = Ask(Earth(), "statistics quakes MAG STATIONS --ignore -9999,7");
  const auto fields = records.Kind("field");
  ASSERT_EQ(fields.size(), 2u);
  EXPECT_EQ(fields[0]["field"], "MAG");
  EXPECT_EQ(fields[1]["item"], "quakes");
  EXPECT_EQ(fields[1]["records"], "all");
  const std::string report = records.Kind("report").at(0)["text"];
  std::size_t figures = 0;
  for (const json& field : fields) {
    for (const json& each : field["figures"]) {
      ++figures;
      const std::string name = each["name"], text = each["text"];
      EXPECT_TRUE(Contains(report, "  " + name + ": " + text + "\r\n")) << name;
      EXPECT_EQ(each["number"].is_null(), name == "Mode") << each;
    }
  }
  EXPECT_EQ(figures, 24u);
  EXPECT_EQ(fields[0]["figures"][10],
            (json{{"name", "Number of Records"}, {"text", "1,707"}, {"number", 1707}}));
  EXPECT_EQ(records.Kind("ignored").at(0)["values"].size(), 2u);
}

TEST(Json, QueryAndSummaryGiveTheirResults) {
  const auto result = Ask(Earth(), "query quakes '\"MAG\" > 5' --new").Kind("result").at(0);
  EXPECT_EQ(result["operation"], "new");
  EXPECT_EQ(result["target"], "selection");
  EXPECT_EQ(result["count"], 35);
  EXPECT_EQ(Ask(Earth(), "query quakes --clear --filter").Kind("result").at(0)["count"], 1707);

  const TempFolder folder;
  const auto summary = Ask(Earth(), "summarize storms NAME --stat Maximum:WIND_KT --all --output " +
                                        folder.Path("storms.dbf"));
  EXPECT_EQ(summary.Kind("table").at(0)["rows"], summary.Kind("row").size());
  EXPECT_EQ(summary.Kind("column").at(2)["holds"], "maximum of WIND_KT");
  EXPECT_EQ(summary.Kind("row").at(0)["values"],
            (json{{"Min_NAME", "AL011993"}, {"Cnt_NAME", 8}, {"Max_WIND_K", 30}}));
}

TEST(Json, WhatSteersATerminalIsEscapedAndComesBackWhole) {
  EarthCopy module;
  module.Write("media_list.txt", "A\x81 \x7F:docs/none.pdf,9\r\n");
  const auto findings = Ask(module.Path(), "check").Kind("finding");
  const auto named = std::any_of(findings.begin(), findings.end(), [](const json& each) {
    return each.dump().find("\u0081") != std::string::npos;
  });
  EXPECT_TRUE(named);
  EXPECT_FALSE(Contains(Brelmon({module.Path(), "check", "--json"}).out, "\u0081"));
}

}  // namespace
}  // namespace brelmon::cli::test
