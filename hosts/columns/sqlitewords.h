// SPDX-License-Identifier: GPL-2.0-or-later
// A clause in the SQL of a SQLite database, word by word.
#pragma once

#include <string>
#include <string_view>

namespace brelmon::columns {

struct SqliteToken {
  enum class Kind { End, Word, Name, Text, Number, Mark };
  Kind kind = Kind::End;
  std::string text;  // words in small letters
  std::string spelt;
};

/// Thrown by what reads a clause, where this evaluator doesn't know all that the clause says.
struct CantReadSqlite {};

class SqliteWords {
 public:
  explicit SqliteWords(std::string_view clause) : clause_(clause) {}
  SqliteToken Next();
  /// Words that name a field only where they stand in quotes.
  static bool IsReserved(std::string_view word);

 private:
  std::string Quoted(char close);
  std::string Number();
  SqliteToken Word();
  std::string_view clause_;
  std::size_t at_ = 0;
};

}  // namespace brelmon::columns
