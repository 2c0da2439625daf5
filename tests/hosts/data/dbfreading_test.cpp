// SPDX-License-Identifier: GPL-2.0-or-later
// Two ways to read a dBASE table, from the file and through GDAL, tell the same of every value.
#include <cpl_string.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <numeric>
#include <set>

#include "hosts/columns/values.h"
#include "hosts/data/clauses.h"
#include "hosts/data/ogrreader.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::data {
namespace {

std::shared_ptr<VectorSource> SourceAt(const std::string& path) {
  GDALAllRegister();
  SourceAddress address;
  address.path = path;
  return std::make_shared<VectorSource>(address);
}

/// With what reading comes to where it fails.
template <class Read>
std::string Shown(Read read) {
  try {
    const Value value = read();
    if (value.IsNull() || value.IsEmpty()) return value.IsNull() ? "null" : "empty";
    if (const double* number = value.If<double>()) return CPLSPrintf("%.17g", *number);
    return ToUtf8(value.ToText());
  } catch (const Failure& failure) {
    return "failure " + std::to_string(failure.Number);
  }
}

using Lines = std::vector<std::string>;

/// A line for each row: its identifier and all its values.
Lines LinesOf(const VectorSource& source, columns::IBatchReader& rows) {
  Lines lines;
  while (const auto batch = rows.Next()) {
    for (const std::uint32_t row : batch->Live) {
      std::string line = std::to_string(batch->Ids[row]);
      for (std::size_t i = 0; i < source.Fields().size(); ++i) {
        line += "|" + Shown([&] { return ValueAt(batch->Columns[i], source.Fields()[i], row); });
      }
      lines.push_back(line);
    }
  }
  return lines;
}

std::vector<std::size_t> All(const VectorSource& source) {
  std::vector<std::size_t> fields(source.Fields().size());
  std::iota(fields.begin(), fields.end(), std::size_t{0});
  return fields;
}

Lines ReadPlainly(const std::shared_ptr<VectorSource>& source, const Text& clause) {
  return LinesOf(*source, *source->Read({All(*source), clause, nullptr}));
}

/// Through GDAL's own filter, which complains of dates that are none and reads on.
Lines ReadByGdal(const std::shared_ptr<VectorSource>& source, const Text& clause) {
  std::set<std::string> ids;
  {
    const auto layer = source->Open();
    layer->SetAttributeFilter(clause.empty() ? nullptr : ToUtf8(clause).c_str());
    while (const OGRFeatureUniquePtr row{layer->GetNextFeature()}) {
      ids.insert(std::to_string(row->GetFID()));
    }
    CPLErrorReset();
  }
  Lines lines = LinesOf(*source, *ReadFeatures(source, All(*source), {}));
  std::erase_if(lines, [&](const std::string& line) {
    return ids.count(line.substr(0, line.find('|'))) == 0;
  });
  return lines;
}

struct Field {
  const char* name;
  char type;
  int width, decimals;
};
constexpr Field kFields[] = {{"TXT", 'C', 8, 0},  {"N4", 'N', 4, 0},   {"N12", 'N', 12, 0},
                             {"N19", 'N', 19, 0}, {"R9", 'N', 9, 3},   {"F20", 'F', 20, 5},
                             {"DAY", 'D', 8, 0},  {"FLAG", 'L', 1, 0}, {"MEMO", 'M', 10, 0}};
constexpr const char* kRecords[][1 + std::size(kFields)] = {
    {" ", "abc", "1234", "123456789012", "1234567890123456789", "1234.567", "-1.23456789e+002",
     "20261116", "T", "1"},
    {" ", "", "", "", "", "", "", "", "", ""},
    {" ", " a b  c", "****", "************", "*******************", "*********",
     "********************", "00000000", "?", "0"},
    {"*", "dead", "1", "1", "1", "1.000", "1.00000", "20200101", "F", "2"},
    {" ", "'quoted'", " -12", "-12345678901", "-123456789012345678", "-0.125", ".5", "19700230",
     "F", ""},
    {" ", "\xC4\xD6\xDC\x80\x81 \xE9", " 007", "000000000007", "0007", "1.5e3", "+7.25", "1/2/99",
     "N", ""},
    {" ", " in", "+  1", "12a", "1.5", "nan", "inf", "20261399", "Y", ""},
    {" ", "-0", "-0", "-0", "-0", "-0.0", "1e999", "0", " ", "x"},
    {" ", "(\xC3\xA9)", "1 2", "1.9", "99999999999999999", "0x10", "12,5", "2026-1-6", "t", ""},
};

std::string Little(std::size_t number, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i, number /= 256) text += static_cast<char>(number % 256);
  return text;
}

std::string OddTable() {
  std::size_t length = 1;
  std::string fields;
  for (const Field& field : kFields) {
    std::string name(11, '\0');
    name.replace(0, std::strlen(field.name), field.name);
    fields += name + field.type + std::string(4, '\0') + static_cast<char>(field.width) +
              static_cast<char>(field.decimals) + std::string(14, '\0');
    length += static_cast<std::size_t>(field.width);
  }
  std::string file = "\x03\x7A\x0B\x10" + Little(std::size(kRecords), 4) +
                     Little(32 + fields.size() + 1, 2) + Little(length, 2) + std::string(17, '\0') +
                     "\x57" + std::string(2, '\0') + fields + "\r";
  for (const auto& record : kRecords) {
    file += record[0];
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
      std::string cell = record[i + 1];
      cell.resize(static_cast<std::size_t>(kFields[i].width), ' ');
      file += cell;
    }
  }
  return file + "\x1A";
}

TEST(DbfReadingTest, TheSampleTablesReadAlike) {
  int tables = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(BRELMON_SOURCE_DIR "/samples/earth/data")) {
    if (entry.path().extension() != ".dbf") continue;
    SCOPED_TRACE(entry.path().string());
    const auto source = SourceAt(entry.path().string());
    EXPECT_EQ(ReadPlainly(source, {}), ReadByGdal(source, {}));
    ++tables;
  }
  EXPECT_GT(tables, 0);
}

TEST(DbfReadingTest, OddRecordsReadAlikeInEveryEncoding) {
  for (const char* encoding : {"", "CP1252", "UTF-8", "ISO-8859-1"}) {
    SCOPED_TRACE(encoding);
    const TempFolder folder;
    const auto path = folder.Write("odd.dbf", OddTable());
    if (*encoding != '\0') folder.Write("odd.cpg", encoding);
    const auto source = SourceAt(path);
    const auto lines = ReadByGdal(source, {});
    EXPECT_EQ(lines.size(), std::size(kRecords) - 1);
    EXPECT_EQ(ReadPlainly(source, {}), lines);
  }
}

TEST(DbfReadingTest, ClausesFindTheSameRows) {
  const TempFolder folder;
  const auto source = SourceAt(folder.Write("odd.dbf", OddTable()));
  for (const Text clause :
       {u"N4 > 0", u"\"n12\" <> 1", u"R9 IS NULL", u"NOT (F20 < 3)", u"TXT LIKE '%A%'",
        u"TXT = 'a b  c' OR FID = 0", u"DAY > '2020/01/01'", u"DAY IS NOT NULL AND N4 < 100",
        u"FLAG = 'T'", u"N19 = 1234567890123456789", u"MEMO IS NULL", u"FID < 3",
        u"CAST(R9 AS integer) = 1234", u"TXT IN ('in', '-0')"}) {
    SCOPED_TRACE(ToUtf8(clause));
    EXPECT_EQ(ReadPlainly(source, clause), ReadByGdal(source, clause));
  }
}

TEST(DbfReadingTest, WhatNoLayoutFitsIsLeftToGdal) {
  const TempFolder folder;
  std::string longer = OddTable();
  longer[10] = static_cast<char>(longer[10] + 1);  // records longer than their fields
  EXPECT_FALSE(columns::ReadDbfLayout(folder.Write("longer.dbf", longer + std::string(20, ' '))));
  folder.Write("japan.cpg", "SHIFT_JIS");
  const auto source = SourceAt(folder.Write("japan.dbf", OddTable()));
  EXPECT_EQ(ReadPlainly(source, {}), ReadByGdal(source, {}));
}

}  // namespace
}  // namespace brelmon::data
