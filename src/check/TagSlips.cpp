// SPDX-License-Identifier: GPL-2.0-or-later
// Tags by their words and by the lines below them.
#include "check/TagSlips.h"

#include <algorithm>
#include <iterator>

#include "check/Spelling.h"
#include "platform/number.h"

namespace brelmon {
namespace {

/// "query" for " </Query >": letters alone.
Text WordOf(const Text& line) {
  Text word;
  for (const char16_t unit : line) {
    const char16_t letter = FoldCase(unit);
    if (letter >= u'a' && letter <= u'z') word += letter;
  }
  if (word.ends_with(u"ies")) word.replace(word.size() - 3, 3, u"ys");
  return word;
}

}  // namespace

bool LooksLikeRecord(const QuickLoadKind& kind, const std::vector<Text>& below) {
  if (below.size() < kind.FieldCount) return false;
  switch (kind.Is) {
    case QuickLoadRecord::Kind::Layer:
      return FindNoCase(below[1], u".qlr") != Text::npos;
    case QuickLoadRecord::Kind::Query:
      return below[1].find_first_of(u"=<>\"[") != Text::npos;
    case QuickLoadRecord::Kind::Bookmark:
      return std::all_of(below.begin() + 1, below.begin() + 5,
                         [](const Text& line) { return ParseNumber(line).has_value(); });
  }
  return false;
}

const QuickLoadKind* TagOf(const Text& line) {
  const auto kind = std::find_if(std::begin(kQuickLoadKinds), std::end(kQuickLoadKinds),
                                 [&](const auto& each) { return each.Tag == line; });
  return kind == std::end(kQuickLoadKinds) ? nullptr : kind;
}

const QuickLoadKind* TagMeant(const Text& line, const std::vector<Text>& below) {
  const Text bare = Trim(Visible(line)), word = WordOf(bare);
  constexpr std::size_t kLongestTag = 16;
  if (bare.size() > kLongestTag) return nullptr;
  const bool angles = bare.find_first_of(u"<>") != Text::npos;
  const bool brackets = bare.find_first_of(u"[](){}\u2039\u203A\u00AB\u00BB") != Text::npos;
  for (const QuickLoadKind& kind : kQuickLoadKinds) {
    const std::size_t edits = Edits(word, WordOf(Text(kind.Tag)));
    const bool likely = angles ? edits <= 2 : brackets && edits == 0;
    if (likely || (edits <= 2 && LooksLikeRecord(kind, below))) return &kind;
  }
  return nullptr;
}

Text SlipOf(const Text& line, const QuickLoadKind& kind) {
  const Text tag(kind.Tag);
  if (EqualNoCase(line, tag)) return u"the tag is written in the wrong case";
  if (HasInvisible(line)) return u"an invisible control character stands beside the tag";
  if (EqualNoCase(Trim(Visible(line)), tag)) return u"blanks stand around the tag";
  return u"the tag is misspelt: \"" + line + u"\"";
}

}  // namespace brelmon
