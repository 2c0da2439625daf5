// SPDX-License-Identifier: GPL-2.0-or-later
// Figures are read from the report's own lines: what a program gets is what a student reads.
#include "cli/reportrecords.h"

#include <optional>
#include <vector>

#include "cli/jsonlines.h"

namespace brelmon::cli {
namespace {

constexpr TextView kHead = u"Statistics on Field \"";
constexpr TextView kIn = u"\" in ";
constexpr TextView kRecords = u"   --> ";
constexpr TextView kFigure = u"  ";
constexpr TextView kIgnored = u" --> ";
constexpr TextView kColon = u": ";

std::vector<Text> LinesOf(const Text& report) {
  std::vector<Text> lines(1);
  for (const char16_t unit : report) {
    if (unit == u'\n') {
      lines.emplace_back();
    } else if (unit != u'\r') {
      lines.back() += unit;
    }
  }
  return lines;
}

/// Of a field's head, before the table's name.
std::optional<Text> AliasIn(const Text& line) {
  const auto end = line.rfind(kIn);
  if (!line.starts_with(kHead) || end == Text::npos || end < kHead.size()) return std::nullopt;
  return line.substr(kHead.size(), end - kHead.size());
}

Json FigureIn(const Text& line) {
  const auto colon = line.find(kColon);
  const Text name = line.substr(kFigure.size(), colon - kFigure.size());
  const Text text = colon == Text::npos ? Text() : line.substr(colon + kColon.size());
  return {{"name", JsonOf(name)}, {"text", JsonOf(text)}, {"number", NumberIn(text)}};
}

}  // namespace

void PrintReport(const Text& report, const Text& item) {
  const JsonLines lines("statistics");
  Json field, ignored = Json::array();
  const auto finish = [&] {
    if (!field.is_null()) lines.Print("field", field);
    field = nullptr;
  };
  for (const Text& line : LinesOf(report)) {
    if (const auto alias = AliasIn(line)) {
      finish();
      field = {{"item", JsonOf(item)},
               {"field", JsonOf(*alias)},
               {"records", "all"},
               {"figures", Json::array()}};
    } else if (line.starts_with(kRecords) && !field.is_null()) {
      field["records"] = line.find(u"Selected") == Text::npos ? "all" : "selected";
    } else if (line.starts_with(kFigure) && !field.is_null()) {
      field["figures"].push_back(FigureIn(line));
    } else if (line.starts_with(kIgnored)) {
      const Text value = line.substr(kIgnored.size());
      ignored.push_back({{"text", JsonOf(value)}, {"number", NumberIn(value)}});
    }
  }
  finish();
  if (!ignored.empty()) lines.Print("ignored", {{"values", ignored}});
  lines.Print("report", {{"text", JsonOf(report)}});
}

}  // namespace brelmon::cli
