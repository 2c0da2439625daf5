// SPDX-License-Identifier: GPL-2.0-or-later
// Words, names, texts, numbers and marks.
#include "hosts/columns/sqlitewords.h"

#include <algorithm>
#include <iterator>

namespace brelmon::columns {
namespace {

constexpr std::string_view kReserved[] = {
    "all",     "and",     "as",       "between",      "by",           "case",
    "cast",    "collate", "distinct", "else",         "end",          "escape",
    "exists",  "from",    "glob",     "group",        "having",       "in",
    "is",      "isnull",  "like",     "limit",        "match",        "not",
    "notnull", "or",      "order",    "regexp",       "select",       "then",
    "union",   "when",    "where",    "current_date", "current_time", "current_timestamp"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (c & 0x80) != 0;
}

}  // namespace

bool SqliteWords::IsReserved(std::string_view word) {
  return std::count(std::begin(kReserved), std::end(kReserved), word) > 0;
}

SqliteToken SqliteWords::Next() {
  while (at_ < clause_.size() && IsBlank(clause_[at_])) ++at_;
  if (at_ == clause_.size()) return {};
  const char c = clause_[at_];
  if (c == '\'') return {SqliteToken::Kind::Text, Quoted('\''), {}};
  if (c == '"' || c == '`') return {SqliteToken::Kind::Name, Quoted(c), {}};
  if (c == '[') return {SqliteToken::Kind::Name, Quoted(']'), {}};
  const bool dot = c == '.' && at_ + 1 < clause_.size() && IsDigit(clause_[at_ + 1]);
  if (IsDigit(c) || dot) return {SqliteToken::Kind::Number, Number(), {}};
  if (IsLetter(c)) return Word();
  for (const std::string_view two :
       {"<>", "<=", ">=", "!=", "==", "||", "--", "/*", "<<", ">>", "->"}) {
    if (clause_.substr(at_, 2) != two) continue;
    at_ += 2;
    return {SqliteToken::Kind::Mark, std::string(two), {}};
  }
  ++at_;
  return {SqliteToken::Kind::Mark, std::string(1, c), {}};
}

std::string SqliteWords::Quoted(char close) {
  std::string text;
  for (++at_; at_ < clause_.size(); ++at_) {
    if (clause_[at_] == close) {
      ++at_;
      const bool doubled = close != ']' && at_ < clause_.size() && clause_[at_] == close;
      if (!doubled) return text;
    }
    text += clause_[at_];
  }
  throw CantReadSqlite();
}

std::string SqliteWords::Number() {
  const std::size_t from = at_;
  const auto skip = [&] {
    while (at_ < clause_.size() && IsDigit(clause_[at_])) ++at_;
  };
  skip();
  if (at_ < clause_.size() && clause_[at_] == '.') {
    ++at_;
    skip();
  }
  if (at_ < clause_.size() && (clause_[at_] | 0x20) == 'e') {
    ++at_;
    if (at_ < clause_.size() && (clause_[at_] == '+' || clause_[at_] == '-')) ++at_;
    const std::size_t digits = at_;
    skip();
    if (at_ == digits) throw CantReadSqlite();
  }
  // Numbers with letters behind them, such as 0x10.
  if (at_ < clause_.size() && IsLetter(clause_[at_])) throw CantReadSqlite();
  return std::string(clause_.substr(from, at_ - from));
}

SqliteToken SqliteWords::Word() {
  const std::size_t from = at_;
  while (at_ < clause_.size() &&
         (IsLetter(clause_[at_]) || IsDigit(clause_[at_]) || clause_[at_] == '$'))
    ++at_;
  SqliteToken token{SqliteToken::Kind::Word, {}, std::string(clause_.substr(from, at_ - from))};
  for (const char c : token.spelt) {
    token.text += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return token;
}

}  // namespace brelmon::columns
