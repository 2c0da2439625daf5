// SPDX-License-Identifier: GPL-2.0-or-later
// What each value asks of its column.
#include "hosts/columns/dbfcolumns.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "hosts/common/hostfailure.h"
#include "platform/date.h"

namespace brelmon::columns {
namespace {

constexpr int kWidestText = 254, kWidestNumber = 255;
constexpr int kSignificant = 15;

[[noreturn]] void CantHold(const DbfColumn& column, const std::string& value) {
  host::Fail(failure::kOverflow,
             "A dBASE column can't hold the value " + value + " of " + column.Name + ".");
}

/// Digits before and behind the point that show a number to 15 significant digits.
struct Digits {
  int whole = 1, decimals = 0;
};

Digits DigitsOf(double value) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, std::abs(value),
                                 std::chars_format::scientific, kSignificant - 1)
                       .ptr;
  const std::string_view written(text, static_cast<std::size_t>(end - text));
  const std::size_t mark = written.find('e');
  int exponent = 0;
  const char* first = text + mark + (written[mark + 1] == '+' ? 2 : 1);
  std::from_chars(first, end, exponent);
  const std::size_t last = written.substr(0, mark).find_last_not_of('0');
  const int significant = last <= 1 ? 1 : static_cast<int>(last);  // the point is one of them
  return {std::max(exponent, 0) + 1, std::max(0, significant - 1 - exponent)};
}

void FitNumbers(DbfColumn& column) {
  int whole = 1, sign = 0;
  for (const double value : column.Numbers) {
    if (std::isnan(value)) continue;
    if (std::isinf(value)) CantHold(column, "infinity");
    const Digits digits = DigitsOf(value);
    whole = std::max(whole, digits.whole);
    sign = value < 0 ? 1 : sign;
    if (column.Is == DbfColumn::Kind::Real) {
      column.Decimals = std::max(column.Decimals, digits.decimals);
    }
  }
  const bool real = column.Is == DbfColumn::Kind::Real;
  if (real) column.Decimals = std::max(column.Decimals, 1);
  column.Width = std::max(column.Width, sign + whole + (real ? 1 + column.Decimals : 0));
  if (column.Width > kWidestNumber)
    CantHold(column, "of " + std::to_string(column.Width) + " digits");
}

/// From here on the texts are bytes of the page.
void FitTexts(DbfColumn& column, const CodePage& page) {
  int widest = 1;
  for (std::string& text : column.Texts) {
    const auto bytes = page.FromUtf8(text);
    if (!bytes || bytes->size() > static_cast<std::size_t>(kWidestText)) {
      CantHold(column, "\"" + text + "\"");
    }
    text = *bytes;
    widest = std::max(widest, static_cast<int>(text.size()));
  }
  column.Width = std::max(widest, std::min(column.Width, kWidestText));
}

void DatesToTexts(DbfColumn& column) {
  column.Is = DbfColumn::Kind::Text;
  for (const double value : column.Numbers) {
    column.NullTexts.push_back(std::isnan(value));
    column.Texts.emplace_back();
    if (std::isnan(value)) continue;
    const CivilTime time = ToCivil(Date{value});
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    column.Texts.back() = text;
  }
  column.Numbers.clear();
}

}  // namespace

void FitColumn(DbfColumn& column, const CodePage& page) {
  if (column.Is == DbfColumn::Kind::Date) {
    const bool timed = std::any_of(column.Numbers.begin(), column.Numbers.end(), [](double value) {
      return !std::isnan(value) && value != std::floor(value);
    });
    if (!timed) {
      column.Width = 8;
      return;
    }
    DatesToTexts(column);
  }
  if (column.Is == DbfColumn::Kind::Text) {
    FitTexts(column, page);
  } else {
    FitNumbers(column);
  }
}

}  // namespace brelmon::columns
