// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers flush right, texts flush left; a null is a field of stars, of noughts or of blanks.
#include "hosts/columns/dbfrecordtext.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "hosts/common/hostfailure.h"
#include "platform/date.h"

namespace brelmon::columns {
namespace {

constexpr std::size_t kHead = 32, kNameBytes = 10;
constexpr double kExactWhole = 9007199254740992.0;  // 2^53
using Kind = DbfColumn::Kind;

void AppendLittle(std::size_t number, int bytes, std::string& text) {
  for (int i = 0; i < bytes; ++i, number /= 256) text += static_cast<char>(number % 256);
}

char TypeOf(Kind kind) { return kind == Kind::Text ? 'C' : kind == Kind::Date ? 'D' : 'N'; }

void AppendPadded(std::string_view text, std::size_t width, std::string& bytes) {
  if (text.size() < width) bytes.append(width - text.size(), ' ');
  bytes += text;
}

void AppendNumber(const DbfColumn& column, double number, std::string& bytes) {
  char text[384];
  const bool whole = column.Is == Kind::Whole;
  if (whole && std::abs(number) <= kExactWhole) {
    const auto end = std::to_chars(text, text + sizeof text, static_cast<std::int64_t>(number)).ptr;
    return AppendPadded({text, static_cast<std::size_t>(end - text)},
                        static_cast<std::size_t>(column.Width), bytes);
  }
  const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed,
                                 whole ? 0 : column.Decimals)
                       .ptr;
  AppendPadded({text, static_cast<std::size_t>(end - text)}, static_cast<std::size_t>(column.Width),
               bytes);
}

void AppendDate(double serial, std::string& bytes) {
  const CivilTime day = ToCivil(Date{serial});
  char text[32];
  bytes.append(text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%04d%02d%02d",
                                                            day.year, day.month, day.day)));
}

}  // namespace

std::string DbfHeader(const std::vector<DbfColumn>& columns, const CodePage& page,
                      std::size_t records) {
  const std::time_t now = std::time(nullptr);
  const std::tm today = *std::localtime(&now);
  std::size_t length = 1;
  std::string fields;
  for (const DbfColumn& column : columns) {
    std::string name = page.FromUtf8(column.Name).value_or("");
    if (name.empty() || name.size() > kNameBytes) {
      host::Fail(failure::kOverflow, "dBASE can't hold the column name " + column.Name + ".");
    }
    name.resize(kNameBytes + 1, '\0');
    fields += name + TypeOf(column.Is) + std::string(4, '\0') + static_cast<char>(column.Width) +
              static_cast<char>(column.Decimals) + std::string(14, '\0');
    length += static_cast<std::size_t>(column.Width);
  }
  if (length > 0xFFFF) host::Fail(failure::kOverflow, "A record of the table would be too long.");
  std::string head = "\x03";
  AppendLittle(static_cast<std::size_t>(today.tm_year), 1, head);
  AppendLittle(static_cast<std::size_t>(today.tm_mon + 1), 1, head);
  AppendLittle(static_cast<std::size_t>(today.tm_mday), 1, head);
  AppendLittle(records, 4, head);
  AppendLittle(kHead + fields.size() + 1, 2, head);
  AppendLittle(length, 2, head);
  head.resize(kHead, '\0');
  return head + fields + '\r';
}

void AppendRecord(const std::vector<DbfColumn>& columns, std::size_t record, std::string& bytes) {
  bytes += ' ';
  for (const DbfColumn& column : columns) {
    const auto width = static_cast<std::size_t>(column.Width);
    if (column.Is == Kind::Text) {
      const std::string text = column.NullTexts[record] ? std::string() : column.Texts[record];
      bytes += text;
      bytes.append(width - text.size(), ' ');
    } else if (std::isnan(column.Numbers[record])) {
      bytes.append(width, column.Is == Kind::Date ? '0' : '*');
    } else if (column.Is == Kind::Date) {
      AppendDate(column.Numbers[record], bytes);
    } else {
      AppendNumber(column, column.Numbers[record], bytes);
    }
  }
}

}  // namespace brelmon::columns
