// SPDX-License-Identifier: GPL-2.0-or-later
// Closures over values, null where an operand is.
#include "hosts/columns/sqliteoperators.h"

#include "hosts/columns/sqlitewords.h"

namespace brelmon::columns {
namespace {

using Truth = std::optional<bool>;

SqliteExpression Made(std::function<SqliteValue(const SqliteRow&)> value) {
  SqliteExpression expression;
  expression.value = std::move(value);
  return expression;
}

void NeedSure(const SqliteExpression& one, const SqliteExpression& other) {
  constexpr std::size_t kUpToSeconds = 19;
  if ((one.time && other.constantSize > kUpToSeconds) ||
      (other.time && one.constantSize > kUpToSeconds)) {
    throw CantReadSqlite();
  }
}

/// What of two whole numbers is one; unset where 64 bits can't hold it.
std::optional<std::int64_t> WholeOf(std::int64_t one, std::int64_t other, char operation) {
  std::int64_t result = 0;
  bool fits = false;
  if (operation == '+') fits = !__builtin_add_overflow(one, other, &result);
  if (operation == '-') fits = !__builtin_sub_overflow(one, other, &result);
  if (operation == '*') fits = !__builtin_mul_overflow(one, other, &result);
  if (operation == '/') {
    fits = one != INT64_MIN || other != -1;
    if (fits) result = one / other;
  }
  return fits ? std::optional(result) : std::nullopt;
}

double RealOf(double one, double other, char operation) {
  switch (operation) {
    case '+':
      return one + other;
    case '-':
      return one - other;
    case '*':
      return one * other;
    default:
      return one / other;
  }
}

SqliteValue Reckon(const SqliteValue& one, const SqliteValue& other, char operation) {
  if (one.IsNull() || other.IsNull()) return {};
  const SqliteValue left = ToNumber(one), right = ToNumber(other);
  const bool whole =
      left.kind == SqliteValue::Kind::Whole && right.kind == SqliteValue::Kind::Whole;
  if (operation == '%') {
    const std::int64_t by = ToWhole(other).whole;
    if (by == 0) return {};
    const std::int64_t rest = by == -1 ? 0 : ToWhole(one).whole % by;
    return whole ? SqliteValue::Of(rest) : SqliteValue::Of(static_cast<double>(rest));
  }
  if (operation == '/' && right.AsReal() == 0) return {};
  if (whole) {
    if (const auto result = WholeOf(left.whole, right.whole, operation)) {
      return SqliteValue::Of(*result);
    }
  }
  return SqliteValue::Of(RealOf(left.AsReal(), right.AsReal(), operation));
}

}  // namespace

void NeedSure(const SqliteExpression& one) {
  if (one.time) throw CantReadSqlite();
}

SqliteExpression Negated(SqliteExpression of) {
  return Made([value = std::move(of.value)](const SqliteRow& at) {
    const Truth truth = TruthOf(value(at));
    return truth ? SqliteValue::Of(!*truth) : SqliteValue();
  });
}

SqliteExpression Both(SqliteExpression one, SqliteExpression other, bool every) {
  return Made(
      [every, left = std::move(one.value), right = std::move(other.value)](const SqliteRow& at) {
        const Truth first = TruthOf(left(at));
        if (first && *first != every) return SqliteValue::Of(!every);
        const Truth second = TruthOf(right(at));
        if (second && *second != every) return SqliteValue::Of(!every);
        return first && second ? SqliteValue::Of(every) : SqliteValue();
      });
}

SqliteExpression Compared(const SqliteExpression& one, const SqliteExpression& other,
                          OrderTest test) {
  NeedSure(one, other);
  const bool number = one.affinity == Affinity::Number || other.affinity == Affinity::Number;
  const bool text = one.affinity == Affinity::Text || other.affinity == Affinity::Text;
  // A side with an affinity keeps its values and the other follows; numbers go before texts.
  const auto follows = [&](Affinity own) {
    return number ? own != Affinity::Number : text && own == Affinity::None;
  };
  const bool oneFollows = follows(one.affinity), otherFollows = follows(other.affinity);
  return Made([=, left = one.value, right = other.value](const SqliteRow& at) {
    SqliteValue first = left(at), second = right(at);
    if (first.IsNull() || second.IsNull()) return SqliteValue();
    if (oneFollows) first = number ? WithNumber(first) : WithText(first, at.made);
    if (otherFollows) second = number ? WithNumber(second) : WithText(second, at.made);
    return SqliteValue::Of(test(CompareValues(first, second)));
  });
}

SqliteExpression Nullness(SqliteExpression of, bool null) {
  return Made([null, value = std::move(of.value)](const SqliteRow& at) {
    return SqliteValue::Of(value(at).IsNull() == null);
  });
}

/// Each as with "=", but that the list has no say in what is compared.
SqliteExpression Among(const SqliteExpression& one, SqliteExpressions others) {
  SqliteExpressions tests;
  for (SqliteExpression& other : others) {
    NeedSure(other);
    other.affinity = Affinity::None;
    tests.push_back(Compared(one, other, [](int order) { return order == 0; }));
  }
  return Made([tests = std::move(tests)](const SqliteRow& at) {
    bool unsure = false;
    for (const SqliteExpression& test : tests) {
      const Truth truth = TruthOf(test.value(at));
      if (truth && *truth) return SqliteValue::Of(true);
      unsure = unsure || !truth;
    }
    return unsure ? SqliteValue() : SqliteValue::Of(false);
  });
}

SqliteExpression Like(SqliteExpression text, SqliteExpression pattern, std::string escape) {
  NeedSure(text);
  NeedSure(pattern);
  return Made([one = std::move(text.value), other = std::move(pattern.value),
               escape = std::move(escape)](const SqliteRow& at) {
    const SqliteValue value = one(at), like = other(at);
    if (value.IsNull() || like.IsNull()) return SqliteValue();
    return SqliteValue::Of(
        IsLikePattern(WithText(value, at.made).text, WithText(like, at.made).text, escape));
  });
}

SqliteExpression Reckoned(const SqliteExpression& one, const SqliteExpression& other,
                          char operation) {
  NeedSure(one);
  NeedSure(other);
  return Made([operation, left = one.value, right = other.value](const SqliteRow& at) {
    return Reckon(left(at), right(at), operation);
  });
}

SqliteExpression Negative(const SqliteExpression& of) {
  return Reckoned(Constant(SqliteValue::Of(std::int64_t{0})), of, '-');
}

SqliteExpression Strung(const SqliteExpression& one, const SqliteExpression& other) {
  NeedSure(one);
  NeedSure(other);
  return Made([left = one.value, right = other.value](const SqliteRow& at) {
    const SqliteValue first = left(at), second = right(at);
    if (first.IsNull() || second.IsNull()) return SqliteValue();
    std::string text(WithText(first, at.made).text);
    text += WithText(second, at.made).text;
    return SqliteValue::Of(Kept(at.made, std::move(text)));
  });
}

SqliteExpression Constant(const SqliteValue& value) {
  SqliteExpression constant = Made([value](const SqliteRow&) { return value; });
  constant.constantSize = 0;
  return constant;
}

SqliteExpression ConstantText(const std::string& text) {
  SqliteExpression constant =
      Made([text](const SqliteRow&) { return SqliteValue::Of(std::string_view(text)); });
  constant.constantSize = text.size();
  return constant;
}

}  // namespace brelmon::columns
