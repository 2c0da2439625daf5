// SPDX-License-Identifier: GPL-2.0-or-later
// Other marks than colon and comma, and addresses with a broken scheme.
#include "check/MediaSlips.h"

#include <algorithm>

#include "check/MediaExtensions.h"
#include "check/Spelling.h"
#include "media/MediaList.h"

namespace brelmon {
namespace {

bool IsCode(TextView text) { return text.size() == 1 && text[0] >= u'0' && text[0] <= u'7'; }

bool TellsItsKind(const Text& location) {
  return LooksLikeAddress(location) || !CodesForLocation(location).empty();
}

/// Cuts a kind code and the marks before it off the end; empty where none stands there.
Text TakeCode(Text& text) {
  const auto last = text.find_last_not_of(u" \t;.|:,", text.size() < 2 ? 0 : text.size() - 2);
  if (text.size() < 2 || last == Text::npos || last + 2 >= text.size()) return {};
  const Text code = text.substr(text.size() - 1);
  if (!IsCode(code)) return {};
  text.resize(last + 1);
  return code;
}

/// Where the name ends in a line without a colon: at another mark, or at a blank before a file.
std::size_t EndOfName(const Text& line, const std::function<bool(const Text& path)>& isFile) {
  const auto mark = line.find_first_of(u";=|\t");
  if (mark != Text::npos) return mark;
  for (auto blank = line.find(u' '); blank != Text::npos; blank = line.find(u' ', blank + 1)) {
    if (isFile(Trim(line.substr(blank)))) return blank;
  }
  return line.rfind(u' ');
}

std::optional<MediaSlip> WithoutComma(const Text& name, Text rest,
                                      const std::function<bool(const Text& path)>& isFile) {
  const Text code = TakeCode(rest);
  if (!code.empty() && TellsItsKind(Trim(rest))) {
    return MediaSlip{Severity::Fails, u"no comma stands before the kind code",
                     MediaLine(name, Trim(rest), code)};
  }
  const Text location = Trim(rest);
  if (location.empty() || !isFile(location)) return {};
  // Behind a blank it may as well be a sentence.
  return MediaSlip{rest.starts_with(u' ') ? Severity::Note : Severity::Fails,
                   u"the line has no comma and kind code",
                   MediaLine(name, location, CodeFor(location))};
}

}  // namespace

Text MediaLine(const Text& name, Text location, const Text& code) {
  if (code == u"3" && !IsShortcutFile(location)) {
    std::replace(location.begin(), location.end(), u':', u'\u00DF');
  }
  return name + u":" + location + u"," + code;
}

Text StemOf(const Text& location) {
  const Text last = location.substr(location.find_last_of(u"\\/") + 1);
  return last.substr(0, last.rfind(u'.'));
}

Text WithScheme(const Text& address) {
  const std::vector<Text> schemes = {u"http", u"https", u"ftp"};
  if (FindNoCase(address, u"mailto:") == 0) return {};
  const auto slash = address.find_first_of(u"/\\");
  if (slash == Text::npos || slash == 0) return {};
  const Text before = address.substr(0, slash);
  Text word = before;
  std::erase_if(word, [](char16_t unit) { return FoldCase(unit) < u'a' || FoldCase(unit) > u'z'; });
  const bool scheme = before.find(u':') != Text::npos || address.find(u"//") == slash;
  const auto meant = Nearest(word, schemes, 2);
  if (!scheme || before.find(u'.') != Text::npos || !meant) return {};
  const auto host = address.find_first_not_of(u"/\\", slash);
  const Text due =
      *meant + u"://" + (host == Text::npos ? Text(u"example.org") : address.substr(host));
  return EqualNoCase(due, address) ? Text() : due;
}

std::optional<MediaSlip> SlipIn(const Text& line,
                                const std::function<bool(const Text& path)>& isFile) {
  const auto colon = line.find(u':');
  if (colon != Text::npos)
    return WithoutComma(line.substr(0, colon), line.substr(colon + 1), isFile);
  const bool comma = line.find(u',') != Text::npos;
  Text rest = line;
  const Text code = TakeCode(rest);
  if (code.empty()) return {};
  const bool marks = line.find_first_of(u";=|\t") != Text::npos;
  if (!comma && !marks) return {};  // a sentence that ends in a number
  const auto end = EndOfName(rest, isFile);
  const Text location = end == Text::npos ? rest : Trim(rest.substr(end + 1));
  if (!TellsItsKind(location)) return {};
  const Text name = end == Text::npos ? StemOf(location) : Trim(rest.substr(0, end));
  return MediaSlip{Severity::Fails,
                   comma ? u"no colon stands behind the name" : u"the line lacks colon and comma",
                   MediaLine(name, location, code)};
}

}  // namespace brelmon
