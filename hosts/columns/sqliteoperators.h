// SPDX-License-Identifier: GPL-2.0-or-later
// What joins the expressions of a SQLite database: tests, logic of three values, reckoning. Each
// throws CantReadSqlite where its answer isn't sure.
#pragma once

#include "hosts/columns/sqliteexpression.h"

namespace brelmon::columns {

/// Times of day may be spelt in several ways in their database: only a comparison with a short text
/// of the clause is sure.
void NeedSure(const SqliteExpression& one);

SqliteExpression Negated(SqliteExpression of);
/// AND if `every`, else OR.
SqliteExpression Both(SqliteExpression one, SqliteExpression other, bool every);

/// A comparison's answer from the order of two values that aren't null.
using OrderTest = bool (*)(int order);
SqliteExpression Compared(const SqliteExpression& one, const SqliteExpression& other,
                          OrderTest test);
SqliteExpression Nullness(SqliteExpression of, bool null);
SqliteExpression Among(const SqliteExpression& one, SqliteExpressions others);
SqliteExpression Like(SqliteExpression text, SqliteExpression pattern, std::string escape);

/// `operation` is one of + - * / %.
SqliteExpression Reckoned(const SqliteExpression& one, const SqliteExpression& other,
                          char operation);
SqliteExpression Negative(const SqliteExpression& of);
SqliteExpression Strung(const SqliteExpression& one, const SqliteExpression& other);
SqliteExpression Constant(const SqliteValue& value);
SqliteExpression ConstantText(const std::string& text);

}  // namespace brelmon::columns
