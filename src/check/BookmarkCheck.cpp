// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers under this locale and under others; boxes that show nothing.
#include "check/BookmarkCheck.h"

#include <algorithm>

#include "check/Spelling.h"
#include "platform/number.h"
#include "platform/services.h"

namespace brelmon {
namespace {

const Text kStops = u"choosing the bookmark stops with an error";

/// What is left of a text that was meant for a number.
Text NumberIn(const Text& text) {
  Text number;
  for (const char16_t unit : Straightened(Visible(text))) {
    const bool sign = unit == u'-' && number.empty();
    const bool point =
        unit == u'.' && CurrentLocale().DecimalSymbol == unit && number.find(unit) == Text::npos;
    if (sign || point || (unit >= u'0' && unit <= u'9')) number += unit;
  }
  return ParseNumber(number) ? number : Text(u"-98");
}

Text WithPoint(Text text) {
  if (text.find(u'.') != Text::npos) {
    std::erase(text, u',');
  } else {
    std::replace(text.begin(), text.end(), u',', u'.');
  }
  return NumberIn(text);
}

/// A plain number, but for its decimal symbol.
bool IsNumberElsewhere(const Text& text) {
  Text other = text;
  const auto at = other.find_first_of(u".,");
  if (at != Text::npos) other[at] = CurrentLocale().DecimalSymbol;
  return at != Text::npos && ParseNumber(other).has_value();
}

/// A number without a decimal symbol, which is read alike everywhere: -9825E-2.
Text WithoutSymbol(const Text& text) {
  const Text plain = Trim(text);
  const auto symbol = plain.find_last_of(u".,");
  const auto end = std::min(plain.find_first_of(u"eEdD"), plain.size());
  Text digits = plain.substr(0, end);
  std::erase_if(digits, [](char16_t unit) { return unit == u'.' || unit == u','; });
  double exponent = -static_cast<double>(end - symbol - 1);
  if (end < plain.size()) exponent += ParseNumber(plain.substr(end + 1)).value_or(0);
  return digits + u"E" + GeneralText(exponent);
}

}  // namespace

void BookmarkCheck::Check(const QuickLoadRecord& record) {
  bool all = true;
  for (std::size_t field = 1; field < record.Fields.size(); ++field) {
    Number(LineOf(record, field), record.Fields[field]);
    all = all && ParseNumber(record.Fields[field]);
  }
  if (!all) return;
  Pair(record, 1);
  Pair(record, 2);
}

void BookmarkCheck::Number(std::int32_t line, const Text& text) {
  const auto value = ParseNumber(text);
  const bool point = CurrentLocale().DecimalSymbol == u'.';
  const Text otherwise =
      point ? u"the number is written with a comma"
            : u"the number is written with a point, where this computer has a comma";
  const Text due = point ? WithPoint(text) : WithoutSymbol(text);
  if (!value && IsNumberElsewhere(text)) {
    return report_.Add(line, Severity::Fails, otherwise, kStops, due);
  }
  if (!value) {
    return report_.Add(line, Severity::Fails, u"\"" + text + u"\" is no number", kStops,
                       NumberIn(text));
  }
  if (text.find_first_of(u".,") == Text::npos) return;
  // A symbol that only groups digits here was most likely meant for the decimal one.
  const bool grouped = text.find(CurrentLocale().DecimalSymbol) == Text::npos;
  if (!grouped) return Decimals(line, text);
  report_.Add(line, Severity::Fails, otherwise, u"the tools read it as " + GeneralText(*value),
              due);
}

void BookmarkCheck::Decimals(std::int32_t line, const Text& text) {
  if (toldOfDecimals_) return;
  toldOfDecimals_ = true;
  const bool point = CurrentLocale().DecimalSymbol == u'.';
  report_.Add(line, Severity::Note,
              point ? u"the bookmarks are written with a decimal point"
                    : u"the bookmarks are written with a decimal comma",
              point ? u"a computer set to a decimal comma, as in Germany or Poland, reads another "
                      u"number or stops with an error"
                    : u"a computer set to a decimal point reads another number",
              u"read alike everywhere: " + WithoutSymbol(text));
}

void BookmarkCheck::Pair(const QuickLoadRecord& record, std::size_t low) {
  const Text& least = record.Fields[low];
  const Text& most = record.Fields[low + 2];
  const double difference = *ParseNumber(most) - *ParseNumber(least);
  if (difference > 0) return;
  const Text names = low == 1 ? u"XMin and XMax" : u"YMin and YMax";
  const auto line = LineOf(record, low);
  const Text further = report_.EditorLine(LineOf(record, low + 2));
  if (difference < 0) {
    return report_.Add(line, Severity::Fails, names + u" of the bookmark are swapped",
                       u"the view it shows is another on each map application",
                       most + u" (and " + least + u" on line " + further + u")");
  }
  report_.Add(line, Severity::Fails, names + u" of the bookmark are equal",
              u"the box is empty and the map shows nothing of use",
              GeneralText(*ParseNumber(least) - 1) + u" (and " +
                  GeneralText(*ParseNumber(most) + 1) + u" on line " + further + u")");
}

}  // namespace brelmon
