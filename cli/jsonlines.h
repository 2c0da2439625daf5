// SPDX-License-Identifier: GPL-2.0-or-later
// Results for programs: one JSON object a line. docs/json.md tells the records and their keys.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/value.h"

namespace CLI {
class App;
}

namespace brelmon::cli {

/// Keys in the order in which they are put.
using Json = nlohmann::ordered_json;

/// Grows by one when a key changes its meaning or goes; what is only added leaves it.
inline constexpr int kJsonFormat = 1;

class JsonLines {
 public:
  /// Prints the head: format, its version, the program's, and what was asked for.
  explicit JsonLines(const std::string& action);
  /// One line: "record" with its kind, then the keys of `content`, an object.
  void Print(const char* record, const Json& content) const;
};

/// Numbers as numbers, whole where they are; dates as "2026-11-16T14:15:07"; a null as null.
Json JsonOf(const Value& value);
Json JsonOf(const Text& text);

/// The flag --json of an action.
std::shared_ptr<bool> AddJsonFlag(CLI::App& action);

/// A number as the report's locale writes it; null for any other text.
Json NumberIn(const Text& text);

}  // namespace brelmon::cli
