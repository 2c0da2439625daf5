// SPDX-License-Identifier: GPL-2.0-or-later
// A where-clause in the dialect of files, read into a tree.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brelmon::columns {

struct ClauseNode {
  enum class Kind {
    Whole,
    Real,
    Text,  // constants
    Name,  // a field, as it is spelt
    Add,
    Subtract,
    Multiply,
    Divide,
    Modulo,  // of two numbers
    Equal,
    Less,
    LessEqual,  // the others are turned round or negated
    NotEqual,
    Like,
    ILike,  // a text, a pattern and perhaps an escape
    In,
    Between,
    IsNull,
    And,
    Or,
    Not
  };
  Kind kind = Kind::Whole;
  std::int64_t whole = 0;
  double real = 0;
  std::string text;     // of a constant or a name
  bool turned = false;  // of a comparison: its sides were written the other way round
  std::vector<std::unique_ptr<ClauseNode>> parts;
};

/// Null for a clause that says more than the tree can hold, or that can't be read at all: whoever
/// knows the whole dialect must be asked. UTF-8.
std::unique_ptr<ClauseNode> ReadClause(std::string_view clause);

}  // namespace brelmon::columns
