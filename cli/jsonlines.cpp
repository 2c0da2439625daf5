// SPDX-License-Identifier: GPL-2.0-or-later
// Lines of JSON in UTF-8.
#include "cli/jsonlines.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <iostream>

#include "cli/visibletext.h"
#include "frame/version.h"
#include "platform/number.h"

namespace brelmon::cli {
namespace {

/// What standard output would show in place of a character is written as JSON's own escape.
std::string Line(const Json& record) {
  Text line;
  for (const char16_t unit :
       FromUtf8(record.dump(-1, ' ', false, Json::error_handler_t::replace))) {
    if (!Steers(unit)) {
      line += unit;
      continue;
    }
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
    line += FromUtf8(escape);
  }
  return ToUtf8(line) + '\n';
}

Json WithKind(const char* record, const Json& content) {
  Json whole{{"record", record}};
  for (const auto& [key, value] : content.items()) whole[key] = value;
  return whole;
}

Json WholeIfExact(double number) {
  constexpr double kMostExact = 9007199254740992.0;
  if (!std::isfinite(number)) return nullptr;
  if (number == std::trunc(number) && std::fabs(number) < kMostExact) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

}  // namespace

JsonLines::JsonLines(const std::string& action) {
  const std::string version = std::to_string(kVersion.Major) + "." +
                              std::to_string(kVersion.Minor) + "." +
                              std::to_string(kVersion.Revision);
  Print(
      "head",
      {{"format", "brelmon"}, {"version", kJsonFormat}, {"program", version}, {"action", action}});
}

void JsonLines::Print(const char* record, const Json& content) const {
  std::cout << Line(WithKind(record, content));
}

Json JsonOf(const Text& text) { return ToUtf8(text); }

Json JsonOf(const Value& value) {
  if (value.IsNull() || value.IsEmpty()) return nullptr;
  if (const auto* flag = value.If<bool>()) return *flag;
  if (const auto* number = value.If<std::int32_t>()) return *number;
  if (const auto* number = value.If<double>()) return WholeIfExact(*number);
  if (const auto* date = value.If<Date>()) {
    const CivilTime civil = ToCivil(*date);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", civil.year, civil.month,
                  civil.day, civil.hour, civil.minute, civil.second);
    return text;
  }
  return JsonOf(value.ToText());
}

Json NumberIn(const Text& text) {
  const auto number = ParseNumber(text);
  return number ? WholeIfExact(*number) : Json(nullptr);
}

std::shared_ptr<bool> AddJsonFlag(CLI::App& action) {
  const auto json = std::make_shared<bool>(false);
  action.add_flag("--json", *json, "Print JSON Lines, for programs");
  return json;
}

}  // namespace brelmon::cli
