// SPDX-License-Identifier: GPL-2.0-or-later
// Two ways to read a dBASE table, from the file and through GDAL, tell the same of every value.
#include "hosts/headless/dbfrows.h"

#include <cpl_string.h>

#include <cstring>

#include "tests/hosts/headless/module.h"

namespace brelmon::headless {
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

/// A line for each row under the clause: its identifier and all its values.
std::vector<std::string> ReadPlainly(const std::shared_ptr<VectorSource>& source,
                                     const Text& clause) {
  std::vector<std::string> lines;
  const auto rows = DbfRows::Open(source, clause);
  EXPECT_TRUE(rows) << "the file isn't read";
  while (rows && rows->Next()) {
    std::string line = std::to_string(rows->Id());
    for (const SourceField& field : source->Fields()) {
      line += "|" + Shown([&] {
                return ReadValue(*source, *rows->Table(), rows->Record(), rows->Id(), field);
              });
    }
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> ReadByGdal(const std::shared_ptr<VectorSource>& source,
                                    const Text& clause) {
  std::vector<std::string> lines;
  const auto rows = OpenRows(*source, {clause, {}, true, false});
  while (const OGRFeatureUniquePtr row{rows->GetNextFeature()}) {
    std::string line = std::to_string(row->GetFID());
    for (const SourceField& field : source->Fields()) {
      line += "|" + Shown([&] { return ReadValue(*source, *row, field); });
    }
    lines.push_back(line);
  }
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

TEST(DbfRowsTest, TheSampleTablesReadAlike) {
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

TEST(DbfRowsTest, OddRecordsReadAlikeInEveryEncoding) {
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

TEST(DbfRowsTest, ClausesFindTheSameRows) {
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
  EXPECT_FALSE(DbfRows::Open(source, u"OGR_GEOM_AREA > 1")) << "GDAL reads what is no field";
}

TEST(DbfRowsTest, UnusualFilesAreLeftToGdal) {
  const TempFolder folder;
  std::string cut = OddTable();
  cut.resize(cut.size() - 40);
  EXPECT_FALSE(SourceAt(folder.Write("cut.dbf", cut))->PlainTable());
  std::string longer = OddTable();
  longer[10] = static_cast<char>(longer[10] + 1);  // records longer than their fields
  EXPECT_FALSE(SourceAt(folder.Write("longer.dbf", longer + std::string(20, ' ')))->PlainTable());
  folder.Write("japan.cpg", "SHIFT_JIS");
  EXPECT_FALSE(SourceAt(folder.Write("japan.dbf", OddTable()))->PlainTable());
  MakeGeoPackage(folder.Path("g.gpkg"));
  EXPECT_FALSE(SourceAt(folder.Path("g.gpkg"))->PlainTable());
}

}  // namespace
}  // namespace brelmon::headless
