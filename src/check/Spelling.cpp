// SPDX-License-Identifier: GPL-2.0-or-later
// Edit distance and look-alikes.
#include "check/Spelling.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brelmon {
namespace {

/// An accent that follows its letter, letters that take it, and what each becomes.
struct Accent {
  char16_t Mark;
  TextView Bare, Whole;
};
constexpr Accent kAccents[] = {
    {0x0300, u"AEIOUaeiou", u"ÀÈÌÒÙàèìòù"},
    {0x0301, u"AEIOUYaeiouy", u"ÁÉÍÓÚÝáéíóúý"},
    {0x0302, u"AEIOUaeiou", u"ÂÊÎÔÛâêîôû"},
    {0x0303, u"ANOano", u"ÃÑÕãñõ"},
    {0x0308, u"AEIOUYaeiouy", u"ÄËÏÖÜŸäëïöüÿ"},
    {0x030A, u"Aa", u"Åå"},
    {0x030C, u"SZsz", u"ŠŽšž"},
    {0x0327, u"Cc", u"Çç"},
};

char16_t Whole(char16_t letter, char16_t mark) {
  const auto accent = std::find_if(std::begin(kAccents), std::end(kAccents),
                                   [&](const Accent& each) { return each.Mark == mark; });
  if (accent == std::end(kAccents)) return 0;
  const auto at = accent->Bare.find(letter);
  return at == TextView::npos ? u'\0' : accent->Whole[at];
}

bool IsControl(char16_t unit) { return (unit < u' ' && unit != u'\t') || unit == 0x7F; }

/// Each unit of `from` replaced by the one at the same place of `to`.
Text Exchanged(TextView text, TextView from, TextView to) {
  Text result(text);
  for (char16_t& unit : result) {
    const auto at = from.find(unit);
    if (at != TextView::npos) unit = to[at];
  }
  return result;
}

}  // namespace

std::size_t Edits(TextView one, TextView other) {
  std::vector<std::size_t> before, last, row(other.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    before = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j < row.size(); ++j) {
      const char16_t here = FoldCase(one[i - 1]), there = FoldCase(other[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (here == there ? 0 : 1)});
      const bool swapped = i > 1 && j > 1 && here == FoldCase(other[j - 2]) &&
                           FoldCase(one[i - 2]) == there && here != there;
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row.back();
}

std::optional<Text> Nearest(TextView word, const std::vector<Text>& among, std::size_t most) {
  std::optional<Text> best;
  for (const Text& each : among) {
    const std::size_t edits = Edits(word, each);
    if (edits > most || (best && edits == most)) continue;
    best = each;
    most = edits;
  }
  return best;
}

Text Composed(TextView text) {
  Text result;
  for (const char16_t unit : text) {
    const char16_t whole = result.empty() ? u'\0' : Whole(result.back(), unit);
    if (whole != 0) {
      result.back() = whole;
    } else {
      result += unit;
    }
  }
  return result;
}

Text Straightened(TextView text) {
  return Exchanged(text,
                   u"\u201C\u201D\u201E\u00AB\u00BB\u2018\u2019\u201A\u2039\u203A\u2013\u2014",
                   u"\"\"\"\"\"'''''--");
}

bool HasInvisible(TextView text) { return std::any_of(text.begin(), text.end(), IsControl); }

Text Visible(TextView text) {
  Text result = Exchanged(text, u"\t\u00A0\u202F", u"   ");
  std::erase_if(result, IsControl);
  return result;
}

}  // namespace brelmon
