// SPDX-License-Identifier: GPL-2.0-or-later
// Words by the dialect's own rules, then a descent by precedence: OR, AND, NOT, comparisons, sums,
// products, signs.
#include "hosts/columns/clausetree.h"

#include <algorithm>
#include <charconv>

namespace brelmon::columns {
namespace {

using Kind = ClauseNode::Kind;
using Node = std::unique_ptr<ClauseNode>;

/// Thrown and caught in this file alone.
struct CantRead {};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
bool IsLetter(char c) { return Upper(c) >= 'A' && Upper(c) <= 'Z'; }

struct Token {
  enum class Kind { End, Word, Name, Text, Whole, Real, Mark };
  Kind kind = Kind::End;
  std::string text;  // words in capitals
  std::string spelt;
};

class Words {
 public:
  explicit Words(std::string_view clause) : clause_(clause) {}

  Token Next() {
    while (at_ < clause_.size() && IsBlank(clause_[at_])) ++at_;
    if (at_ == clause_.size()) return {};
    const char c = clause_[at_];
    if (c == '\'') return {Token::Kind::Text, Quoted(c), {}};
    if (c == '"') return {Token::Kind::Name, Quoted(c), {}};
    if (IsDigit(c)) return Number();
    if (IsLetter(c)) return Word();
    ++at_;
    return {Token::Kind::Mark, std::string(1, c), {}};
  }

 private:
  static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

  std::string Quoted(char mark) {
    std::string text;
    for (++at_; at_ < clause_.size(); ++at_) {
      // What a backslash does before a mark is too odd to be sure of.
      const bool marked = at_ + 1 < clause_.size() && clause_[at_ + 1] == mark;
      if (clause_[at_] == '\\' && (mark == '"' || marked)) throw CantRead();
      if (clause_[at_] == mark) {
        ++at_;
        if (mark != '\'' || at_ == clause_.size() || clause_[at_] != mark) return text;
      }
      text += clause_[at_];
    }
    throw CantRead();
  }

  void Digits() {
    while (at_ < clause_.size() && IsDigit(clause_[at_])) ++at_;
  }
  bool Take(std::string_view marks) {
    const bool hit = at_ < clause_.size() && marks.find(clause_[at_]) != std::string_view::npos;
    if (hit) ++at_;
    return hit;
  }

  Token Number() {
    const std::size_t from = at_;
    Digits();
    bool real = Take(".");
    if (real) Digits();
    if (Take("eE")) {
      real = true;
      Take("+-");
      Digits();
    }
    return {real ? Token::Kind::Real : Token::Kind::Whole,
            std::string(clause_.substr(from, at_ - from)),
            {}};
  }

  Token Word() {
    const std::size_t from = at_;
    while (at_ < clause_.size() && (IsLetter(clause_[at_]) || IsDigit(clause_[at_]) ||
                                    clause_[at_] == '_' || (clause_[at_] & 0x80) != 0)) {
      ++at_;
    }
    Token token{Token::Kind::Word, {}, std::string(clause_.substr(from, at_ - from))};
    for (const char c : token.spelt) token.text += Upper(c);
    return token;
  }

  std::string_view clause_;
  std::size_t at_ = 0;
};

constexpr std::string_view kReserved[] = {
    "IN",    "LIKE",  "ILIKE",  "ESCAPE", "EXCEPT", "EXCLUDE", "NULL",     "IS",
    "NOT",   "AND",   "OR",     "SELECT", "LEFT",   "JOIN",    "WHERE",    "ON",
    "ORDER", "BY",    "FROM",   "AS",     "ASC",    "DESC",    "CAST",     "UNION",
    "ALL",   "LIMIT", "OFFSET", "OUTER",  "INNER",  "HIDDEN",  "DISTINCT", "BETWEEN"};

Node New(Kind kind, Node one = nullptr, Node other = nullptr) {
  auto node = std::make_unique<ClauseNode>();
  node->kind = kind;
  if (one) node->parts.push_back(std::move(one));
  if (other) node->parts.push_back(std::move(other));
  return node;
}

class Reader {
 public:
  explicit Reader(std::string_view clause) : words_(clause) { Step(); }

  Node All() {
    Node node = Or();
    if (now_.kind != Token::Kind::End) throw CantRead();
    return node;
  }

 private:
  static constexpr int kDeepest = 200;
  static constexpr int kMostTokens =
      8000;  // a chain of operators makes a tree as deep as it is long

  void Step() {
    if (++steps_ > kMostTokens) throw CantRead();
    now_ = words_.Next();
  }
  bool IsMark(char mark) const { return now_.kind == Token::Kind::Mark && now_.text[0] == mark; }
  bool IsWord(std::string_view word) const {
    return now_.kind == Token::Kind::Word && now_.text == word;
  }
  bool TakeMark(char mark) {
    const bool hit = IsMark(mark);
    if (hit) Step();
    return hit;
  }
  bool TakeWord(std::string_view word) {
    const bool hit = IsWord(word);
    if (hit) Step();
    return hit;
  }
  void NeedMark(char mark) {
    if (!TakeMark(mark)) throw CantRead();
  }
  void NeedWord(std::string_view word) {
    if (!TakeWord(word)) throw CantRead();
  }

  Node Or() {
    if (++depth_ > kDeepest) throw CantRead();
    Node node = And();
    while (TakeWord("OR")) node = New(Kind::Or, std::move(node), And());
    --depth_;
    return node;
  }
  Node And() {
    Node node = Not();
    while (TakeWord("AND")) node = New(Kind::And, std::move(node), Not());
    return node;
  }
  Node Not() {
    if (++depth_ > kDeepest) throw CantRead();
    const bool negated = TakeWord("NOT");
    Node node = negated ? New(Kind::Not, Not()) : Comparison();
    // "NOT a NOT IN (1)" is "(NOT a) NOT IN (1)", which nobody means.
    if (negated && notInside_) throw CantRead();
    --depth_;
    return node;
  }

  Node Comparison() {
    Node left = Sum();
    notInside_ = false;
    if (TakeWord("IS")) {
      const bool negated = TakeWord("NOT");
      NeedWord("NULL");
      return Negated(New(Kind::IsNull, std::move(left)), negated);
    }
    const bool negated = TakeWord("NOT");
    Node test = Test(left, negated);
    notInside_ = negated;
    return test;
  }
  /// What may stand behind a NOT of its own; a comparison else.
  Node Test(Node& left, bool negated) {
    if (TakeWord("LIKE")) return Negated(Pattern(Kind::Like, std::move(left)), negated);
    if (TakeWord("ILIKE")) return Negated(Pattern(Kind::ILike, std::move(left)), negated);
    if (TakeWord("IN")) return Negated(List(std::move(left)), negated);
    if (TakeWord("BETWEEN")) {
      Node node = New(Kind::Between, std::move(left), Sum());
      NeedWord("AND");
      node->parts.push_back(Sum());
      return Negated(std::move(node), negated);
    }
    if (negated) throw CantRead();
    return Compared(std::move(left));
  }

  static Node Negated(Node node, bool negated) {
    return negated ? New(Kind::Not, std::move(node)) : std::move(node);
  }
  Node Pattern(Kind kind, Node left) {
    Node node = New(kind, std::move(left), Sum());
    if (TakeWord("ESCAPE")) node->parts.push_back(Sum());
    return node;
  }
  Node List(Node left) {
    NeedMark('(');
    Node node = New(Kind::In, std::move(left));
    do {
      node->parts.push_back(Sum());
    } while (TakeMark(','));
    NeedMark(')');
    return node;
  }

  Node Compared(Node left) {
    if (TakeMark('=')) {
      // "=<" and "=>" are odd spellings that don't mean what they look like.
      if (IsMark('<') || IsMark('>')) throw CantRead();
      return Last(New(Kind::Equal, std::move(left), Sum()));
    }
    if (TakeMark('!')) {
      NeedMark('=');
      return Last(New(Kind::NotEqual, std::move(left), Sum()));
    }
    if (TakeMark('<')) {
      if (TakeMark('>')) return Last(New(Kind::NotEqual, std::move(left), Sum()));
      const Kind kind = TakeMark('=') ? Kind::LessEqual : Kind::Less;
      return Last(New(kind, std::move(left), Sum()));
    }
    if (TakeMark('>')) {
      const Kind kind = TakeMark('=') ? Kind::LessEqual : Kind::Less;
      Node right = Sum();
      Node node = New(kind, std::move(right), std::move(left));
      node->turned = true;
      return Last(std::move(node));
    }
    return left;
  }
  /// A comparison of a comparison is nothing that anybody means.
  Node Last(Node node) {
    const bool goesOn = IsMark('=') || IsMark('<') || IsMark('>') || IsMark('!') || IsWord("IS") ||
                        IsWord("IN") || IsWord("LIKE") || IsWord("ILIKE") || IsWord("BETWEEN") ||
                        IsWord("NOT");
    if (goesOn) throw CantRead();
    return node;
  }

  Node Sum() {
    Node node = Product();
    while (IsMark('+') || IsMark('-')) {
      const Kind kind = IsMark('+') ? Kind::Add : Kind::Subtract;
      Step();
      node = New(kind, std::move(node), Product());
    }
    return node;
  }
  Node Product() {
    Node node = Signed();
    while (IsMark('*') || IsMark('/') || IsMark('%')) {
      const Kind kind = IsMark('*') ? Kind::Multiply : IsMark('/') ? Kind::Divide : Kind::Modulo;
      Step();
      node = New(kind, std::move(node), Signed());
    }
    return node;
  }
  Node Signed() {
    if (++depth_ > kDeepest) throw CantRead();
    Node node = TakeMark('-') ? Minus(Signed()) : Operand();
    --depth_;
    return node;
  }
  static Node Minus(Node node) {
    if (node->kind == Kind::Whole) {
      node->whole = -node->whole;
    } else if (node->kind == Kind::Real) {
      node->real = -node->real;
    } else {
      Node minusOne = New(Kind::Whole);
      minusOne->whole = -1;
      return New(Kind::Multiply, std::move(minusOne), std::move(node));
    }
    return node;
  }

  Node Operand() {
    if (TakeMark('(')) {
      Node node = Or();
      NeedMark(')');
      return node;
    }
    Node node = New(Kind::Name);
    node->text = now_.kind == Token::Kind::Word ? now_.spelt : now_.text;
    const std::string_view digits = node->text;
    switch (now_.kind) {
      case Token::Kind::Text:
        node->kind = Kind::Text;
        break;
      case Token::Kind::Whole:
        node->kind = Kind::Whole;
        if (!Parsed(digits, node->whole)) throw CantRead();
        break;
      case Token::Kind::Real:
        node->kind = Kind::Real;
        if (!Parsed(digits, node->real)) throw CantRead();
        break;
      case Token::Kind::Word:
        if (std::count(std::begin(kReserved), std::end(kReserved), now_.text) > 0) {
          throw CantRead();
        }
        break;
      case Token::Kind::Name:
        break;
      default:
        throw CantRead();
    }
    const bool name = node->kind == Kind::Name;
    Step();
    // A function, or a table's name.
    if (name && (IsMark('(') || IsMark('.'))) throw CantRead();
    return node;
  }
  template <class Number>
  static bool Parsed(std::string_view digits, Number& number) {
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stop == end;
  }

  Words words_;
  Token now_;
  int depth_ = 0;
  int steps_ = 0;
  bool notInside_ = false;  // the last test had a NOT between its parts
};

}  // namespace

std::unique_ptr<ClauseNode> ReadClause(std::string_view clause) {
  try {
    return Reader(clause).All();
  } catch (const CantRead&) {
    return nullptr;
  }
}

}  // namespace brelmon::columns
