// SPDX-License-Identifier: GPL-2.0-or-later
// Fields, functions and casts.
#include "hosts/columns/sqliteexpression.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace brelmon::columns {
namespace {

using Kind = SqliteValue::Kind;
using Values = std::vector<SqliteValue>;

std::string TextOfMoment(const Moment& moment, bool timeOfDay) {
  char text[48];
  const int size =
      std::snprintf(text, sizeof text, "%04d-%02d-%02d", moment.Year, moment.Month, moment.Day);
  if (!timeOfDay) return {text, static_cast<std::size_t>(size)};
  const int more =
      std::snprintf(text + size, sizeof text - static_cast<std::size_t>(size), "T%02d:%02d:%02dZ",
                    moment.Hour, moment.Minute, static_cast<int>(moment.Second));
  return {text, static_cast<std::size_t>(size + more)};
}

template <class Change>
SqliteValue Changed(const SqliteValue& value, MadeTexts& made, Change change) {
  if (value.IsNull()) return value;
  std::string text(WithText(value, made).text);
  std::transform(text.begin(), text.end(), text.begin(), change);
  return SqliteValue::Of(Kept(made, std::move(text)));
}

SqliteValue Trimmed(const SqliteValue& value, MadeTexts& made, bool left, bool right) {
  if (value.IsNull()) return value;
  std::string_view text = WithText(value, made).text;
  while (left && text.starts_with(' ')) text.remove_prefix(1);
  while (right && text.ends_with(' ')) text.remove_suffix(1);
  return SqliteValue::Of(text);
}

SqliteValue Length(const Values& of, MadeTexts& made) {
  if (of[0].IsNull()) return {};
  return SqliteValue::Of(static_cast<std::int64_t>(CharacterCount(WithText(of[0], made).text)));
}

SqliteValue Abs(const Values& of, MadeTexts&) {
  if (of[0].IsNull()) return {};
  if (of[0].kind == Kind::Whole) return SqliteValue::Of(std::abs(of[0].whole));
  return SqliteValue::Of(std::abs(ToNumber(of[0]).AsReal()));
}

/// Half away from zero; always a real number.
SqliteValue Round(const Values& of, MadeTexts&) {
  constexpr int kMostDigits = 30;
  std::int64_t digits = 0;
  if (of.size() > 1) {
    if (of[1].IsNull()) return {};
    digits = std::clamp<std::int64_t>(ToWhole(of[1]).whole, 0, kMostDigits);
  }
  if (of[0].IsNull()) return {};
  const double number = ToNumber(of[0]).AsReal();
  constexpr double kHasFraction = 4503599627370496.0;  // numbers beyond are whole
  if (std::abs(number) > kHasFraction) return SqliteValue::Of(number);
  if (digits == 0) return SqliteValue::Of(std::trunc(number + (number < 0 ? -0.5 : 0.5)));
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", static_cast<int>(digits), number);
  return SqliteValue::Of(std::strtod(text, nullptr));
}

SqliteValue Coalesce(const Values& of, MadeTexts&) {
  const auto hit = std::find_if(of.begin(), of.end(), [](auto& each) { return !each.IsNull(); });
  return hit == of.end() ? SqliteValue() : *hit;
}

SqliteValue NullIf(const Values& of, MadeTexts&) {
  const bool same = !of[0].IsNull() && !of[1].IsNull() && CompareValues(of[0], of[1]) == 0;
  return same ? SqliteValue() : of[0];
}

/// Where a text first stands in another, in characters from 1; 0 where it doesn't.
SqliteValue Instr(const Values& of, MadeTexts& made) {
  if (of[0].IsNull() || of[1].IsNull()) return {};
  const std::string_view text = WithText(of[0], made).text;
  const std::size_t at = text.find(WithText(of[1], made).text);
  if (at == std::string_view::npos) return SqliteValue::Of(std::int64_t{0});
  return SqliteValue::Of(static_cast<std::int64_t>(CharacterCount(text.substr(0, at))) + 1);
}

/// From a character, counted from 1, or from the end below 0; a negative length goes backwards.
SqliteValue Substr(const Values& of, MadeTexts& made) {
  if (std::any_of(of.begin(), of.end(), [](auto& each) { return each.IsNull(); })) return {};
  std::string_view text = WithText(of[0], made).text;
  const auto count = static_cast<std::int64_t>(CharacterCount(text));
  // Of larger numbers the lower half counts.
  const auto number = [&](std::size_t at) {
    return std::int64_t{static_cast<std::int32_t>(ToWhole(of[at]).whole)};
  };
  std::int64_t first = number(1);
  std::int64_t size = of.size() > 2 ? number(2) : INT32_MAX;
  const bool back = size < 0;
  if (back) size = -size;
  if (first < 0) {
    first += count;
    if (first < 0) {
      size = std::max<std::int64_t>(size + first, 0);
      first = 0;
    }
  } else if (first > 0) {
    --first;
  } else if (size > 0) {
    --size;
  }
  if (back) {
    first -= size;
    if (first < 0) {
      size += first;
      first = 0;
    }
  }
  for (; first > 0 && !text.empty(); --first) text.remove_prefix(CharacterSize(text));
  std::size_t bytes = 0;
  for (; size > 0 && bytes < text.size(); --size) bytes += CharacterSize(text.substr(bytes));
  return SqliteValue::Of(text.substr(0, bytes));
}

struct Function {
  std::size_t least, most;  // arguments
  SqliteValue (*call)(const Values&, MadeTexts&);
};

const std::map<std::string, Function>& Functions() {
  static const std::map<std::string, Function> functions = {
      {"abs", {1, 1, Abs}},
      {"coalesce", {2, 99, Coalesce}},
      {"ifnull", {2, 2, Coalesce}},
      {"instr", {2, 2, Instr}},
      {"length", {1, 1, Length}},
      {"lower",
       {1, 1,
        [](const Values& of, MadeTexts& made) {
          return Changed(of[0], made, [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
          });
        }}},
      {"ltrim",
       {1, 1, [](const Values& of, MadeTexts& made) { return Trimmed(of[0], made, true, false); }}},
      {"nullif", {2, 2, NullIf}},
      {"round", {1, 2, Round}},
      {"rtrim",
       {1, 1, [](const Values& of, MadeTexts& made) { return Trimmed(of[0], made, false, true); }}},
      {"substr", {2, 3, Substr}},
      {"substring", {2, 3, Substr}},
      {"trim",
       {1, 1, [](const Values& of, MadeTexts& made) { return Trimmed(of[0], made, true, true); }}},
      {"upper",
       {1, 1,
        [](const Values& of, MadeTexts& made) {
          return Changed(of[0], made, [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
          });
        }}},
  };
  return functions;
}

}  // namespace

SqliteExpression SqliteField(const Field& field, std::size_t index) {
  SqliteExpression expression;
  expression.affinity = field.Stored == Storage::Text ? Affinity::Text : Affinity::Number;
  expression.time = field.Stored == Storage::Moment && field.TimeOfDay;
  const auto made = [&](auto take) {
    return [index, take](const SqliteRow& at) {
      const Column& column = at.batch.Columns[index];
      return column.IsNull(at.row) ? SqliteValue() : take(column, at);
    };
  };
  switch (field.Stored) {
    case Storage::Whole:
      expression.value = made([](const Column& column, const SqliteRow& at) {
        return SqliteValue::Of(column.Wholes[at.row]);
      });
      break;
    case Storage::Real:
      expression.value = made([](const Column& column, const SqliteRow& at) {
        return SqliteValue::Of(column.Reals[at.row]);
      });
      break;
    case Storage::Moment:
      expression.value = made([time = field.TimeOfDay](const Column& column, const SqliteRow& at) {
        return SqliteValue::Of(Kept(at.made, TextOfMoment(column.Moments[at.row], time)));
      });
      break;
    case Storage::Text:
      expression.value = made([](const Column& column, const SqliteRow& at) {
        return SqliteValue::Of(column.Texts[at.row]);
      });
      break;
    default:
      break;  // bytes, which no page has
  }
  return expression;
}

SqliteExpression SqliteCall(const std::string& name, SqliteExpressions arguments) {
  const auto known = Functions().find(name);
  const std::size_t count = arguments.size();
  if (known == Functions().end() || count < known->second.least || count > known->second.most) {
    return {};
  }
  SqliteExpression expression;
  expression.value = [call = known->second.call, of = std::move(arguments)](const SqliteRow& at) {
    Values values;
    for (const SqliteExpression& each : of) values.push_back(each.value(at));
    return call(values, at.made);
  };
  return expression;
}

SqliteExpression SqliteCast(SqliteExpression of, const std::string& type) {
  SqliteExpression expression;
  expression.affinity = Affinity::Number;
  const auto value = std::move(of.value);
  if (type == "integer" || type == "int" || type == "bigint") {
    expression.value = [value](const SqliteRow& at) { return ToWhole(value(at)); };
  } else if (type == "real" || type == "double" || type == "float") {
    expression.value = [value](const SqliteRow& at) {
      const SqliteValue number = ToNumber(value(at));
      return number.IsNull() ? number : SqliteValue::Of(number.AsReal());
    };
  } else if (type == "text" || type == "varchar") {
    expression.affinity = Affinity::Text;
    expression.value = [value](const SqliteRow& at) { return WithText(value(at), at.made); };
  }
  return expression;
}

}  // namespace brelmon::columns
