// SPDX-License-Identifier: GPL-2.0-or-later
// A tokenizer for where-clauses of SQL dialects.
#include "hosts/columns/querytokens.h"

#include <algorithm>
#include <array>

namespace brelmon::columns {
namespace {

/// Words that are part of the language where they stand bare and unfollowed by a parenthesis.
constexpr auto kKeywords = std::to_array<TextView>(
    {u"all",    u"and",      u"any",     u"as",           u"asc",          u"between",
     u"case",   u"cast",     u"collate", u"current_date", u"current_time", u"current_timestamp",
     u"desc",   u"distinct", u"else",    u"end",          u"escape",       u"exists",
     u"false",  u"filter",   u"from",    u"glob",         u"ilike",        u"in",
     u"is",     u"isnull",   u"like",    u"limit",        u"match",        u"mod",
     u"not",    u"notnull",  u"null",    u"nulls",        u"or",           u"over",
     u"regexp", u"similar",  u"then",    u"true",         u"when"});

/// Words that go on behind a condition, so that a count and a selection would differ.
constexpr auto kBehind =
    std::to_array<TextView>({u"limit", u"offset", u"union", u"intersect", u"except", u"having",
                             u"window", u"returning", u"into"});

/// What a clause may call: functions that look at their arguments and at nothing else, and whose
/// result is about as long as they are: a format with a width fills the memory. No source is asked
/// to evaluate any other.
constexpr auto kFunctions =
    std::to_array<TextView>({u"abs",         u"avg",        u"ceil",       u"ceiling",
                             u"char_length", u"coalesce",   u"concat",     u"count",
                             u"date",        u"date_part",  u"datetime",   u"extract",
                             u"floor",       u"glob",       u"greatest",   u"hex",
                             u"ifnull",      u"iif",        u"initcap",    u"instr",
                             u"julianday",   u"least",      u"left",       u"length",
                             u"like",        u"ln",         u"log",        u"lower",
                             u"lpad",        u"ltrim",      u"max",        u"min",
                             u"mod",         u"now",        u"nullif",     u"octet_length",
                             u"position",    u"power",      u"quote",      u"replace",
                             u"right",       u"round",      u"rpad",       u"rtrim",
                             u"sign",        u"split_part", u"sqrt",       u"strftime",
                             u"strpos",      u"substr",     u"substring",  u"sum",
                             u"time",        u"to_char",    u"to_date",    u"to_number",
                             u"total",       u"trim",       u"trunc",      u"typeof",
                             u"unicode",     u"unixepoch",  u"upper",      u"exp",
                             u"st_area",     u"st_length",  u"st_isempty", u"st_geometrytype"});

/// In 16-bit units. A chain of operators nests as deep as it is long, in any source.
constexpr std::size_t kLongest = 200'000;

enum class Kind { End, Word, QuotedName, String, Number, Open, Close, Dot, Semicolon, Other };

struct Token {
  Kind kind = Kind::End;
  Text text;
};

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }
bool IsWordStart(char16_t unit) {
  const char16_t letter = unit < 0x80 ? static_cast<char16_t>(unit | 0x20) : unit;
  return (letter >= u'a' && letter <= u'z') || unit == u'_' || unit >= 0x80;
}
bool IsWordPart(char16_t unit) { return IsWordStart(unit) || IsDigit(unit) || unit == u'$'; }

class Tokenizer {
 public:
  explicit Tokenizer(TextView clause) : clause_(clause) {}
  const std::string& Fault() const { return fault_; }

  Token Next() {
    SkipBlanks();
    if (at_ >= clause_.size()) return {};
    const char16_t unit = clause_[at_];
    if (unit == u'\'') return {Kind::String, Quoted(u'\'')};
    if (unit == u'"' || unit == u'`') return {Kind::QuotedName, Quoted(unit)};
    if (unit == u'[') return {Kind::QuotedName, Quoted(u']')};
    if (IsDigit(unit) || (unit == u'.' && at_ + 1 < clause_.size() && IsDigit(clause_[at_ + 1]))) {
      return Number();
    }
    if (IsWordStart(unit)) return Word();
    ++at_;
    switch (unit) {
      case u'(':
        return {Kind::Open, {}};
      case u')':
        return {Kind::Close, {}};
      case u'.':
        return {Kind::Dot, {}};
      case u';':
        return {Kind::Semicolon, {}};
      default:
        return {Kind::Other, Text(1, unit)};
    }
  }

 private:
  void SkipBlanks() {
    while (at_ < clause_.size()) {
      if (IsSpace(clause_[at_])) {
        ++at_;
      } else if (clause_.substr(at_, 2) == u"/*") {
        at_ = std::min(clause_.find(u"*/", at_ + 2), clause_.size() - 2) + 2;
      } else {
        return;
      }
    }
  }

  /// The text up to the closing mark, doubled marks undone.
  Text Quoted(char16_t close) {
    Text text;
    for (++at_; at_ < clause_.size(); ++at_) {
      if (clause_[at_] == close) {
        const bool doubled = at_ + 1 < clause_.size() && clause_[at_ + 1] == close && close != u']';
        if (!doubled) {
          ++at_;
          return text;
        }
        ++at_;
      }
      text += clause_[at_];
    }
    fault_ = "a quotation mark or bracket is not closed";
    return text;
  }

  Token Number() {
    const std::size_t from = at_;
    while (at_ < clause_.size() && (IsWordPart(clause_[at_]) || clause_[at_] == u'.')) {
      const bool exponent = (clause_[at_] | 0x20) == u'e' && clause_.substr(from, 2) != u"0x";
      ++at_;
      const bool sign = at_ < clause_.size() && (clause_[at_] == u'+' || clause_[at_] == u'-');
      if (exponent && sign) ++at_;
    }
    return {Kind::Number, Text(clause_.substr(from, at_ - from))};
  }

  Token Word() {
    const std::size_t from = at_;
    while (at_ < clause_.size() && IsWordPart(clause_[at_])) ++at_;
    const Text word(clause_.substr(from, at_ - from));
    // X'53': bytes, not a name.
    if (word.size() == 1 && (word[0] | 0x20) == u'x' && at_ < clause_.size() &&
        clause_[at_] == u'\'') {
      return {Kind::String, Quoted(u'\'')};
    }
    return {Kind::Word, word};
  }

  TextView clause_;
  std::size_t at_ = 0;
  std::string fault_;
};

template <class List>
bool IsAmong(const List& list, TextView word) {
  return std::any_of(list.begin(), list.end(),
                     [&](TextView one) { return EqualNoCase(one, word); });
}

bool IsKeyword(TextView word) { return IsAmong(kKeywords, word); }

/// Why the word can't stand where it does; empty where it can.
std::string FaultOf(const Token& token, const Token& next) {
  if (token.kind != Kind::Word && token.kind != Kind::QuotedName) return {};
  const bool by = next.kind == Kind::Word && EqualNoCase(next.text, u"by") &&
                  (EqualNoCase(token.text, u"order") || EqualNoCase(token.text, u"group"));
  if (token.kind == Kind::Word && (by || IsAmong(kBehind, token.text))) {
    return "it goes on behind its condition, with " + ToUtf8(token.text);
  }
  const bool calls = next.kind == Kind::Open &&
                     (token.kind == Kind::QuotedName || !IsKeyword(token.text)) &&
                     !EqualNoCase(token.text, u"select") && !EqualNoCase(token.text, u"where") &&
                     !EqualNoCase(token.text, u"on");
  // An operator that is quoted to be called as a function ends some sources' process.
  const bool operation = token.kind == Kind::QuotedName && IsKeyword(token.text);
  if (calls && (operation || !IsAmong(kFunctions, token.text))) {
    return "the function " + ToUtf8(token.text) + " is none that a query may call";
  }
  return {};
}

/// What a nested SELECT may not name: tables that the database makes of itself, its files among
/// them, and one that goes on without end.
std::string FaultInSelect(const Token& token) {
  if (token.kind == Kind::Word &&
      (EqualNoCase(token.text, u"with") || EqualNoCase(token.text, u"recursive"))) {
    return "a nested SELECT can't begin with WITH";
  }
  const bool names =
      token.kind == Kind::Word || token.kind == Kind::QuotedName || token.kind == Kind::String;
  const auto starts = [&](TextView start) {
    return EqualNoCase(TextView(token.text).substr(0, start.size()), start);
  };
  if (names && (starts(u"sqlite_") || starts(u"pragma_") || EqualNoCase(token.text, u"dbstat"))) {
    return ToUtf8(token.text) + " is no table of the data";
  }
  return {};
}

/// A comparison with such a cast ends the process in GDAL 3.6.
bool CastsToTruth(const Token& token, const Token& next) {
  const bool type = next.kind == Kind::Word || next.kind == Kind::QuotedName;
  return type && token.kind == Kind::Word && EqualNoCase(token.text, u"as") &&
         EqualNoCase(next.text, u"boolean");
}

/// Whether the token before says that a word names a type or an order, not a field.
bool NamesNoField(const Token& before) {
  return before.kind == Kind::Word &&
         (EqualNoCase(before.text, u"as") || EqualNoCase(before.text, u"collate"));
}

std::vector<Token> Tokens(TextView clause, std::string& fault) {
  Tokenizer tokenizer(clause);
  std::vector<Token> tokens;
  do {
    tokens.push_back(tokenizer.Next());
  } while (tokens.back().kind != Kind::End);
  fault = tokenizer.Fault();
  return tokens;
}

/// Follows the parentheses and knows which of them hold a nested SELECT.
class Nesting {
 public:
  void Take(const Token& token, const Token& next) {
    if (token.kind == Kind::Open) {
      ++depth_;
      const bool select = next.kind == Kind::Word && EqualNoCase(next.text, u"select");
      if (select && selectDepth_ == 0) selectDepth_ = depth_;
    } else if (token.kind == Kind::Close) {
      if (depth_ == selectDepth_) selectDepth_ = 0;
      paired_ = paired_ && depth_ > 0;
      --depth_;
    }
  }
  bool InSelect() const { return selectDepth_ > 0; }
  bool Paired() const { return paired_ && depth_ == 0; }

 private:
  int depth_ = 0, selectDepth_ = 0;
  bool paired_ = true;
};

}  // namespace

ClauseNames NamesIn(TextView clause) {
  ClauseNames names;
  if (clause.size() > kLongest) {
    names.fault = "it is longer than " + std::to_string(kLongest) + " characters";
    return names;
  }
  const std::vector<Token> tokens = Tokens(clause, names.fault);
  Nesting nesting;
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    const Token& token = tokens[i];
    const Token& next = tokens[i + 1];
    nesting.Take(token, next);
    if (token.kind == Kind::Semicolon) names.fault = "it holds more than one statement";
    if (CastsToTruth(token, next)) names.fault = "no value can be cast to boolean";
    if (names.fault.empty() && !nesting.InSelect()) names.fault = FaultOf(token, next);
    if (names.fault.empty() && nesting.InSelect()) names.fault = FaultInSelect(token);
    // A nested SELECT may order and limit; what it calls is looked at all the same.
    if (names.fault.empty() && next.kind == Kind::Open) names.fault = FaultOf(token, next);
    const bool name = token.kind == Kind::QuotedName || token.kind == Kind::Word;
    // What a dot follows is a table; what a parenthesis follows is a function.
    if (!name || nesting.InSelect() || next.kind == Kind::Dot) continue;
    if (token.kind == Kind::Word) {
      // A word before a text is its type.
      if (IsKeyword(token.text) || next.kind == Kind::Open || next.kind == Kind::String) continue;
      if (i > 0 && NamesNoField(tokens[i - 1])) continue;
    }
    names.fields.push_back(token.text);
  }
  if (names.fault.empty() && !nesting.Paired()) names.fault = "its parentheses don't pair";
  return names;
}

std::optional<Text> UnknownField(const ClauseNames& names, const std::vector<Text>& fields) {
  for (const Text& name : names.fields) {
    const bool known = std::any_of(fields.begin(), fields.end(),
                                   [&](const Text& field) { return EqualNoCase(field, name); });
    if (!known) return name;
  }
  return {};
}

bool IsBlank(TextView clause) { return std::all_of(clause.begin(), clause.end(), IsSpace); }

}  // namespace brelmon::columns
