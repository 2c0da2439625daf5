// SPDX-License-Identifier: GPL-2.0-or-later
// A walk over a clause by the rules that the server's language and our own reader share.
#include "hosts/servers/querytext.h"

#include <algorithm>

namespace brelmon::servers {
namespace {

bool IsWordPart(char16_t unit) {
  const char16_t letter = unit < 0x80 ? static_cast<char16_t>(unit | 0x20) : unit;
  return (letter >= u'a' && letter <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_' ||
         unit >= 0x80;
}

/// Behind the closing mark of what begins at `at`; the marks double inside.
std::size_t EndOfQuoted(TextView clause, std::size_t at) {
  const char16_t mark = clause[at];
  for (++at; at < clause.size(); ++at) {
    if (clause[at] != mark) continue;
    if (at + 1 >= clause.size() || clause[at + 1] != mark) return at + 1;
    ++at;
  }
  return at;
}

/// Texts with escapes of their own: E'...', U&'...', U&"...".
bool HasEscapes(TextView word, TextView rest) {
  if (rest.empty()) return false;
  if (EqualNoCase(word, u"e")) return rest[0] == u'\'';
  return EqualNoCase(word, u"u") && rest[0] == u'&' && rest.size() > 1 &&
         (rest[1] == u'\'' || rest[1] == u'"');
}

}  // namespace

std::string QuotedName(const std::string& name) {
  std::string quoted = "\"";
  for (const char unit : name) quoted += unit == '"' ? "\"\"" : std::string(1, unit);
  return quoted + '"';
}

std::string OddSpelling(TextView clause) {
  for (std::size_t at = 0; at < clause.size();) {
    const char16_t unit = clause[at];
    const TextView two = clause.substr(at, 2);
    if (two == u"--" || two == u"/*") return "it holds a comment";
    if (unit == u'$') return "it holds a $ outside of texts and names";
    if (unit == u'\\' || unit == u'`') return "it holds a mark that no condition has";
    if (unit == u'[' || unit == u']') return "names stand in double quotes, not in brackets";
    if (unit == u'\'' || unit == u'"') {
      at = EndOfQuoted(clause, at);
    } else if (IsWordPart(unit)) {
      const std::size_t from = at;
      while (at < clause.size() && IsWordPart(clause[at])) ++at;
      if (HasEscapes(clause.substr(from, at - from), clause.substr(at))) {
        return "it holds a text with escapes";
      }
    } else {
      ++at;
    }
  }
  return {};
}

bool NamesTables(TextView clause) {
  for (std::size_t at = 0; at < clause.size();) {
    if (clause[at] == u'\'' || clause[at] == u'"') {
      at = EndOfQuoted(clause, at);
      if (at < clause.size() && clause[at] == u'.') return true;
    } else {
      const bool digit = at > 0 && clause[at - 1] >= u'0' && clause[at - 1] <= u'9';
      if (clause[at] == u'.' && !digit) return true;
      ++at;
    }
  }
  return false;
}

}  // namespace brelmon::servers
