// SPDX-License-Identifier: GPL-2.0-or-later
// A where-clause in the SQL of a SQLite database: a descent by precedence that makes expressions.
#include <algorithm>

#include "hosts/columns/rows.h"
#include "hosts/columns/sqliteoperators.h"
#include "hosts/columns/sqlitewords.h"
#include "hosts/columns/where.h"

namespace brelmon::columns {
namespace {

using Expression = SqliteExpression;

class Reader {
 public:
  Reader(std::string_view clause, const std::vector<Field>& fields)
      : fields_(fields), words_(clause) {
    Step();
  }
  Expression All() {
    Expression expression = Or();
    if (now_.kind != SqliteToken::Kind::End) throw CantReadSqlite();
    NeedSure(expression);
    return expression;
  }
  std::vector<std::size_t> Tested() {
    std::sort(tested_.begin(), tested_.end());
    tested_.erase(std::unique(tested_.begin(), tested_.end()), tested_.end());
    return tested_;
  }

 private:
  static constexpr int kDeepest = 100, kMostTokens = 4000;

  /// Counts how deep a clause is nested while it lives.
  class Level {
   public:
    explicit Level(int& depth) : depth_(depth) {
      if (++depth_ > kDeepest) throw CantReadSqlite();
    }
    ~Level() { --depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    int& depth_;
  };

  void Step() {
    if (++steps_ > kMostTokens) throw CantReadSqlite();
    now_ = words_.Next();
  }
  bool IsMark(std::string_view mark) const {
    return now_.kind == SqliteToken::Kind::Mark && now_.text == mark;
  }
  bool IsWord(std::string_view word) const {
    return now_.kind == SqliteToken::Kind::Word && now_.text == word;
  }
  bool TakeMark(std::string_view mark) {
    const bool hit = IsMark(mark);
    if (hit) Step();
    return hit;
  }
  bool TakeWord(std::string_view word) {
    const bool hit = IsWord(word);
    if (hit) Step();
    return hit;
  }
  void NeedMark(std::string_view mark) {
    if (!TakeMark(mark)) throw CantReadSqlite();
  }

  Expression Or() {
    const Level level(depth_);
    Expression left = And();
    while (TakeWord("or")) left = Both(std::move(left), And(), false);
    return left;
  }
  Expression And() {
    Expression left = Not();
    while (TakeWord("and")) left = Both(std::move(left), Not(), true);
    return left;
  }
  Expression Not() {
    const Level level(depth_);
    if (TakeWord("not")) return Negated(Not());
    return Equality();
  }

  Expression Equality() {
    Expression left = Order();
    for (;;) {
      if (TakeMark("=") || TakeMark("==")) {
        left = Compared(left, Order(), [](int order) { return order == 0; });
      } else if (TakeMark("<>") || TakeMark("!=")) {
        left = Compared(left, Order(), [](int order) { return order != 0; });
      } else if (TakeWord("isnull")) {
        left = Nullness(std::move(left), true);
      } else if (TakeWord("notnull")) {
        left = Nullness(std::move(left), false);
      } else if (TakeWord("is")) {
        const bool null = !TakeWord("not");
        // Of values that aren't null, IS is a comparison that knows nulls.
        if (!TakeWord("null")) throw CantReadSqlite();
        left = Nullness(std::move(left), null);
      } else if (IsWord("not") || IsWord("in") || IsWord("like") || IsWord("between")) {
        left = Test(std::move(left));
      } else {
        return left;
      }
    }
  }

  /// What may have a NOT of its own.
  Expression Test(Expression left) {
    const bool negated = TakeWord("not");
    Expression test;
    if (negated && TakeWord("null")) return Nullness(std::move(left), false);
    if (TakeWord("in")) {
      test = In(left);
    } else if (TakeWord("between")) {
      const Expression low = Order();
      if (!TakeWord("and")) throw CantReadSqlite();
      test = Both(Compared(left, low, [](int order) { return order >= 0; }),
                  Compared(left, Order(), [](int order) { return order <= 0; }), true);
    } else if (TakeWord("like")) {
      test = Pattern(std::move(left));
    } else {
      throw CantReadSqlite();
    }
    return negated ? Negated(std::move(test)) : test;
  }

  Expression In(const Expression& left) {
    NeedMark("(");
    SqliteExpressions list;
    while (!IsMark(")")) {
      list.push_back(Or());
      if (!TakeMark(",")) break;
    }
    NeedMark(")");
    return Among(left, std::move(list));
  }

  Expression Pattern(Expression left) {
    Expression pattern = Order();
    std::string escape;
    if (TakeWord("escape")) {
      if (now_.kind != SqliteToken::Kind::Text || CharacterCount(now_.text) != 1) {
        throw CantReadSqlite();
      }
      escape = now_.text;
      Step();
    }
    return Like(std::move(left), std::move(pattern), std::move(escape));
  }

  Expression Order() {
    Expression left = Sum();
    for (;;) {
      if (TakeMark("<")) {
        left = Compared(left, Sum(), [](int order) { return order < 0; });
      } else if (TakeMark("<=")) {
        left = Compared(left, Sum(), [](int order) { return order <= 0; });
      } else if (TakeMark(">")) {
        left = Compared(left, Sum(), [](int order) { return order > 0; });
      } else if (TakeMark(">=")) {
        left = Compared(left, Sum(), [](int order) { return order >= 0; });
      } else {
        return left;
      }
    }
  }

  Expression Sum() {
    Expression left = Product();
    while (IsMark("+") || IsMark("-")) {
      const char operation = now_.text[0];
      Step();
      left = Reckoned(left, Product(), operation);
    }
    return left;
  }
  Expression Product() {
    Expression left = Concatenation();
    while (IsMark("*") || IsMark("/") || IsMark("%")) {
      const char operation = now_.text[0];
      Step();
      left = Reckoned(left, Concatenation(), operation);
    }
    return left;
  }
  Expression Concatenation() {
    Expression left = Signed();
    while (TakeMark("||")) left = Strung(left, Signed());
    return left;
  }
  Expression Signed() {
    const Level level(depth_);
    if (TakeMark("-")) return Negative(Signed());
    if (TakeMark("+")) {
      Expression of = Signed();
      of.affinity = Affinity::None;
      return of;
    }
    return Operand();
  }

  Expression Operand() {
    const SqliteToken token = now_;
    Step();
    if (token.kind == SqliteToken::Kind::Mark && token.text == "(") {
      Expression inner = Or();
      NeedMark(")");
      return inner;
    }
    if (token.kind == SqliteToken::Kind::Number)
      return Constant(ToNumber(SqliteValue::Of(std::string_view(token.text))));
    if (token.kind == SqliteToken::Kind::Text) return ConstantText(token.text);
    const bool word = token.kind == SqliteToken::Kind::Word;
    if (!word && token.kind != SqliteToken::Kind::Name) throw CantReadSqlite();
    if (word && token.text == "null") return Constant({});
    if (word && token.text == "cast" && TakeMark("(")) return Cast();
    if (word && IsMark("(")) return Call(token.text);
    // A table's name, or a call of something in quotes.
    if (IsMark(".") || IsMark("(")) throw CantReadSqlite();
    const std::string& name = word ? token.spelt : token.text;
    const std::int32_t field = FindField(fields_, FromUtf8(name));
    if (field < 0 && word && (token.text == "true" || token.text == "false")) {
      return Constant(SqliteValue::Of(token.text == "true"));
    }
    if (field < 0 || (word && SqliteWords::IsReserved(token.text))) {
      throw CantReadSqlite();
    }
    const auto index = static_cast<std::size_t>(field);
    Expression expression = SqliteField(fields_[index], index);
    if (!expression.value) throw CantReadSqlite();
    tested_.push_back(index);
    return expression;
  }

  Expression Call(const std::string& name) {
    NeedMark("(");
    SqliteExpressions arguments;
    while (!IsMark(")")) {
      arguments.push_back(Or());
      NeedSure(arguments.back());
      if (!TakeMark(",")) break;
    }
    NeedMark(")");
    Expression call = SqliteCall(name, std::move(arguments));
    if (!call.value) throw CantReadSqlite();
    return call;
  }
  Expression Cast() {
    Expression of = Or();
    NeedSure(of);
    if (!TakeWord("as") || now_.kind != SqliteToken::Kind::Word) throw CantReadSqlite();
    Expression cast = SqliteCast(std::move(of), now_.text);
    Step();
    NeedMark(")");
    if (!cast.value) throw CantReadSqlite();
    return cast;
  }

  const std::vector<Field>& fields_;
  std::vector<std::size_t> tested_;
  SqliteWords words_;
  SqliteToken now_;
  int depth_ = 0, steps_ = 0;
};

class SqliteWhere : public Where {
 public:
  SqliteWhere(Expression condition, std::vector<std::size_t> fields)
      : condition_(std::move(condition)), fields_(std::move(fields)) {}
  const std::vector<std::size_t>& Fields() const override { return fields_; }
  void Keep(Batch& batch) const override {
    MadeTexts made;
    std::erase_if(batch.Live, [&](std::uint32_t row) {
      made.clear();
      return !TruthOf(condition_.value({batch, row, made})).value_or(false);
    });
  }

 private:
  Expression condition_;
  std::vector<std::size_t> fields_;
};

}  // namespace

Compiled CompileSqliteWhere(TextView clause, const std::vector<Field>& fields) {
  try {
    const std::string text = ToUtf8(clause);
    Reader reader(text, fields);
    Expression condition = reader.All();
    return {std::make_unique<SqliteWhere>(std::move(condition), reader.Tested()), {}};
  } catch (const CantReadSqlite&) {
    return {};
  }
}

}  // namespace brelmon::columns
