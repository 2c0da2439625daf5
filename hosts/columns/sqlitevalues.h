// SPDX-License-Identifier: GPL-2.0-or-later
// Values as a SQLite database has them: any cell may hold any kind.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace brelmon::columns {

struct SqliteValue {
  enum class Kind : std::uint8_t { Null, Whole, Real, Text };
  Kind kind = Kind::Null;
  std::int64_t whole = 0;
  double real = 0;
  std::string_view text;  // UTF-8, of whoever keeps it

  bool IsNull() const { return kind == Kind::Null; }
  bool IsNumber() const { return kind == Kind::Whole || kind == Kind::Real; }
  double AsReal() const { return kind == Kind::Whole ? static_cast<double>(whole) : real; }

  static SqliteValue Of(std::int64_t number) { return {Kind::Whole, number, 0, {}}; }
  static SqliteValue Of(double number);  // what is no number becomes null
  static SqliteValue Of(std::string_view utf8) { return {Kind::Text, 0, 0, utf8}; }
  static SqliteValue Of(bool flag) { return Of(std::int64_t{flag}); }
};

/// Texts that are made while a row is looked at.
using MadeTexts = std::deque<std::string>;
std::string_view Kept(MadeTexts& room, std::string text);

/// Numbers before texts; below, at or above 0. Neither is null.
int CompareValues(const SqliteValue& one, const SqliteValue& other);

/// A text that is wholly a number becomes it; anything else stays.
SqliteValue WithNumber(const SqliteValue& value);
/// The number that a value begins with, 0 where it begins with none; null stays.
SqliteValue ToNumber(const SqliteValue& value);
SqliteValue ToWhole(const SqliteValue& value);
/// A number becomes its text; anything else stays.
SqliteValue WithText(const SqliteValue& value, MadeTexts& room);

/// Unset for null.
std::optional<bool> TruthOf(const SqliteValue& value);

/// `%` stands for any characters, `_` for one; ASCII letters without regard to case. `escape`,
/// unless empty, makes the character behind it plain.
bool IsLikePattern(std::string_view text, std::string_view pattern, std::string_view escape);

/// Bytes of the character that a text begins with.
std::size_t CharacterSize(std::string_view text);
std::size_t CharacterCount(std::string_view text);

}  // namespace brelmon::columns
