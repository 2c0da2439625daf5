// SPDX-License-Identifier: GPL-2.0-or-later
// Summary tables: what is reckoned, how it is stored, what is refused.
#include "hosts/columns/dissolve.h"

#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <sys/resource.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <random>
#include <variant>

#include "frame/guard.h"
#include "hosts/columns/columnbuffer.h"
#include "hosts/columns/dissolveterms.h"
#include "platform/failure.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::columns::test {
namespace {

namespace fs = std::filesystem;
/// A value of a row: nothing, a number or a day, a text.
using Cell = std::variant<std::monostate, double, std::string>;
Cell Number(double value) { return value; }
Cell Day(double serial) { return serial; }
Cell Word(std::string_view text) { return std::string(text); }
const Cell kNull;

Storage StorageOf(FieldType type) {
  if (type == FieldType::String) return Storage::Text;
  if (type == FieldType::Date) return Storage::Moment;
  return type <= FieldType::Integer ? Storage::Whole : Storage::Real;
}
Field NewField(std::string name, FieldType type = FieldType::String, int width = 0,
               int decimals = 0) {
  Field field{std::move(name), type, StorageOf(type)};
  field.Width = width;
  field.Decimals = decimals;
  return field;
}
Moment MomentOf(double serial) {
  const CivilTime time = ToCivil(Date{serial});
  const auto byte = [](int part) { return static_cast<std::uint8_t>(part); };
  return {static_cast<std::int16_t>(time.year),
          byte(time.month),
          byte(time.day),
          byte(time.hour),
          byte(time.minute),
          0,
          static_cast<float>(time.second)};
}

/// Wide enough for the exact sum of many squares.
__extension__ typedef __int128 Wide;

/// Rows that a test has written down, in batches of three.
class ListedRows : public IRowSource {
 public:
  std::vector<Field> fields;
  std::vector<std::vector<Cell>> rows;
  CodePage page;

  const std::vector<Field>& Fields() const override { return fields; }
  const CodePage& Encoding() override { return page; }
  void TryClause(TextView) override {}
  std::unique_ptr<IBatchReader> Read(const RowRequest& request) override {
    return std::make_unique<Reader>(*this, request.Fields);
  }

 private:
  struct Listed : Batch {
    std::vector<ColumnBuffer> buffers;
  };
  class Reader : public IBatchReader {
   public:
    Reader(const ListedRows& of, std::vector<std::size_t> fields)
        : of_(of), fields_(std::move(fields)) {}
    std::shared_ptr<Batch> Next() override {
      auto batch = std::make_shared<Listed>();
      batch->Rows = std::min<std::size_t>(3, of_.rows.size() - at_);
      if (batch->Rows == 0) return nullptr;
      batch->Columns.resize(of_.fields.size());
      batch->buffers.resize(of_.fields.size());
      for (std::size_t row = 0; row < batch->Rows; ++row) {
        batch->Live.push_back(static_cast<std::uint32_t>(row));
      }
      for (const std::size_t field : fields_) {
        batch->buffers[field].Start(of_.fields[field].Stored, batch->Rows);
        for (std::size_t row = 0; row < batch->Rows; ++row) Put(*batch, field, row);
        batch->Columns[field] = batch->buffers[field].View();
      }
      at_ += batch->Rows;
      return batch;
    }

   private:
    void Put(Listed& batch, std::size_t field, std::size_t row) {
      ColumnBuffer& column = batch.buffers[field];
      const Cell& cell = of_.rows[at_ + row][field];
      if (cell == kNull) return column.SetNull(row);
      if (const auto* text = std::get_if<std::string>(&cell)) {
        column.Texts[row] = *text;
        return;
      }
      const double number = std::get<double>(cell);
      if (!column.Reals.empty()) column.Reals[row] = number;
      if (!column.Wholes.empty()) column.Wholes[row] = static_cast<std::int64_t>(number);
      if (!column.Moments.empty()) column.Moments[row] = MomentOf(number);
    }
    const ListedRows& of_;
    std::vector<std::size_t> fields_;
    std::size_t at_ = 0;
  };
};

/// The characters of Windows-1252 that are those of Latin-1.
Text Latin() {
  Text units(256, u'\0');
  for (char16_t unit = 1; unit < 256; ++unit) units[unit] = unit;
  return units;
}

class DissolveTest : public ::testing::Test {
 protected:
  DissolveTest() { GDALAllRegister(); }

  void Run(const Text& field, const Text& summary, const Text& name = u"out.dbf") {
    table.reset(GDALDataset::Open(Dissolve({rows, {}}, field, summary, folder, name).c_str()));
    ASSERT_TRUE(table);
    layer = table->GetLayer(0);
  }
  /// The number that it fails with; the folder stays as it was.
  std::int32_t Refusal(const Text& field, const Text& summary, const Text& name = u"out.dbf") {
    const auto files = [&] { return std::distance(fs::directory_iterator(folder), {}); };
    const auto before = files();
    const std::int32_t number = Guard::Ignore([&] {
      Dissolve({rows, {}}, field, summary, folder, name);
    });
    EXPECT_EQ(files(), before);
    return number;
  }
  /// All of one column, "null" for nulls.
  std::string Column(int column) {
    std::string all;
    layer->ResetReading();
    for (auto& row : *layer) {
      all += all.empty() ? "" : " ";
      all += row->IsFieldSetAndNotNull(column) ? row->GetFieldAsString(column) : "null";
    }
    return all;
  }
  const OGRFieldDefn& Definition(int column) {
    return *layer->GetLayerDefn()->GetFieldDefn(column);
  }

  TempFolder temporary;
  const std::string folder = temporary.Path();
  std::shared_ptr<ListedRows> rows = std::make_shared<ListedRows>();
  GDALDatasetUniquePtr table;
  OGRLayer* layer = nullptr;
};

TEST(DissolveTermsTest, ColumnsTellStatisticAndFieldInTenCharacters) {
  const std::vector<Field> fields = {NewField("NET"), NewField("MAGNITUDE_A", FieldType::Double),
                                     NewField("magnitude_b", FieldType::Double),
                                     NewField("\u00D6\u00C4\u00DC\u00D6\u00C4", FieldType::Double)};
  const auto terms = ParseTerms(
      "Minimum.NET, Count.NET, Sum.MAGNITUDE_A, sum.Magnitude_B, StdDev.MAGNITUDE_A, "
      "Average.\u00D6\u00C4\u00DC\u00D6\u00C4",
      fields);
  std::string names;
  for (const auto& term : terms) names += term.Column + " ";
  EXPECT_EQ(names, "Min_NET Cnt_NET Sum_MAGNIT Sum_magn_2 SD_MAGNITU Ave_\u00D6\u00C4\u00DC ");
}

TEST(DissolveTermsTest, FieldsOfAwkwardNamesAreFound) {
  const std::vector<Field> fields = {
      NewField("mag", FieldType::Double), NewField("MAG", FieldType::Double),
      NewField("Pop", FieldType::Double), NewField("Pop, total"),
      NewField("a.b", FieldType::Double), NewField("O'Brien")};
  const auto terms = ParseTerms(
      "Minimum.Pop, total, Count.Pop, total, Sum.MAG, Sum.mag, Sum.Mag, Sum.Pop, Sum.a.b, "
      "Maximum.O'Brien",
      fields);
  std::string found;
  for (const auto& term : terms) found += std::to_string(term.Source) + " ";
  EXPECT_EQ(found, "3 3 1 0 0 2 4 5 ");
}

TEST_F(DissolveTest, SumsAgreeWithExactArithmetic) {
  rows->fields = {NewField("KEY", FieldType::Integer), NewField("V", FieldType::Double)};
  std::mt19937 random(7);
  std::map<int, std::vector<std::int64_t>> cents;
  for (int i = 0; i < 20000; ++i) {
    const int key = static_cast<int>(random() % 7);
    const auto cent = static_cast<std::int64_t>(random() % 2000000001) - 700000000;
    cents[key].push_back(cent);
    rows->rows.push_back({Number(key), Number(static_cast<double>(cent) / 100)});
  }
  Run(u"KEY", u"Count.KEY, Sum.V, Average.V, Variance.V, StdDev.V, Minimum.V, Maximum.V");
  ASSERT_EQ(layer->GetFeatureCount(), 7);
  for (auto& row : *layer) {
    const auto& group = cents[static_cast<int>(row->GetFID())];
    const auto n = static_cast<Wide>(group.size());
    Wide sum = 0, squares = 0;
    for (const std::int64_t cent : group) {
      sum += cent;
      squares += static_cast<Wide>(cent) * cent;
    }
    const double mean = static_cast<double>(sum) / static_cast<double>(n) / 100;
    const auto variance = static_cast<double>(static_cast<long double>(n * squares - sum * sum) /
                                              static_cast<long double>(n * (n - 1)) / 10000);
    const auto [least, most] = std::minmax_element(group.begin(), group.end());
    const double due[] = {static_cast<double>(n),
                          static_cast<double>(sum) / 100,
                          mean,
                          variance,
                          std::sqrt(variance),
                          static_cast<double>(*least) / 100,
                          static_cast<double>(*most) / 100};
    for (int i = 0; i < 7; ++i) {
      EXPECT_NEAR(row->GetFieldAsDouble(i) / due[i], 1, i == 3 || i == 4 ? 1e-13 : 1e-14) << i;
    }
  }
}

TEST_F(DissolveTest, NullsAreAGroupAndCountInNoStatistic) {
  rows->fields = {NewField("NET"), NewField("MAG", FieldType::Double)};
  rows->rows = {{Word("us"), Number(4)}, {kNull, Number(1)},      {Word("ci"), kNull},
                {Word("us"), kNull},     {Word("us"), Number(2)}, {kNull, Number(1.5)},
                {Word("ak"), Number(7)}};
  Run(u"NET", u"Minimum.NET, Count.NET, Sum.MAG, Average.MAG, Variance.MAG");
  EXPECT_EQ(Column(0), "null ak ci us");
  EXPECT_EQ(Column(1), "2 1 1 3");
  EXPECT_EQ(Column(2), "2.5 7.0 null 6.0");
  EXPECT_EQ(Column(3), "1.25 7.00 null 3.00");
  EXPECT_EQ(Column(4), "0.125 0.000 null 2.000");
}

TEST_F(DissolveTest, EveryTypeOfFieldAsKeyInAscendingOrder) {
  const struct {
    FieldType type;
    std::vector<Cell> values;
    std::string shown;
    OGRFieldType stored;
  } cases[] = {
      {FieldType::SmallInteger, {Number(10), Number(-9), Number(10)}, "-9 10", OFTInteger},
      {FieldType::Integer, {Number(2147483647), Number(3)}, "3 2147483647", OFTInteger64},
      {FieldType::Single, {Number(0.5), Number(-0.0), Number(0.0)}, "0.0 0.5", OFTReal},
      {FieldType::Double,
       {Number(1e-7), Number(123456789.125)},
       "0.0000001 123456789.1250000",
       OFTReal},
      {FieldType::String, {Word("b"), Word("B"), Word("a")}, "B a b", OFTString},
      {FieldType::Date, {Day(40001), Day(2)}, "1900/01/01 2009/07/07", OFTDate},
      {FieldType::Date, {Day(2.5), Day(2)}, "1900-01-01 00:00:00 1900-01-01 12:00:00", OFTString},
  };
  int number = 0;
  for (const auto& each : cases) {
    rows = std::make_shared<ListedRows>();
    rows->fields = {NewField("K", each.type)};
    for (const auto& value : each.values) rows->rows.push_back({value});
    Run(u"K", u"Minimum.K, Count.K", u"t" + FromUtf8(std::to_string(++number)) + u".dbf");
    EXPECT_EQ(Column(0), each.shown);
    EXPECT_EQ(Definition(0).GetType(), each.stored) << each.shown;
  }
}

TEST_F(DissolveTest, ExtremesKeepWidthAndCodePage) {
  rows->page = CodePage("CP1252", Latin());
  rows->fields = {NewField("NAME", FieldType::String, 40), NewField("V", FieldType::Double, 12, 3)};
  rows->rows = {{Word("\u00C5rhus"), Number(1.5)}, {Word("M\u00FCnchen"), Number(2)}};
  Run(u"NAME", u"Minimum.NAME, Count.NAME, Maximum.V, Sum.V");
  EXPECT_EQ(Column(0), "M\u00FCnchen \u00C5rhus");
  EXPECT_EQ(Definition(0).GetWidth(), 40);
  EXPECT_EQ(Column(2), "2.000 1.500");
  EXPECT_EQ(Definition(2).GetWidth(), 12);
  EXPECT_EQ(Column(3), "2.0 1.5");
}

TEST_F(DissolveTest, WhatDbaseCantHoldIsRefused) {
  const std::string fits(254, 'x'), tooLong(255, 'x');
  rows->fields = {NewField("K"), NewField("V", FieldType::Double)};
  rows->rows = {{Word(fits), Number(1e200)}};
  Run(u"K", u"Minimum.K, Sum.V", u"wide.dbf");
  EXPECT_EQ(Column(0), fits);
  const auto refused = [&](Cell key, double value) {
    rows = std::make_shared<ListedRows>();
    rows->fields = {NewField("K"), NewField("V", FieldType::Double)};
    rows->rows = {{key, Number(value)}, {key, Number(1e-10)}};
    return Refusal(u"K", u"Minimum.K, Minimum.V, Maximum.V, Sum.V");
  };
  EXPECT_EQ(refused(Word(tooLong), 1), failure::kOverflow);
  EXPECT_EQ(refused(Word("a"), 1e-300), failure::kOverflow);
  EXPECT_EQ(refused(Word("a"), INFINITY), failure::kOverflow);
  Text many = u"Count.K";
  for (int i = 0; i < 255; ++i) many += u", Count.K";
  EXPECT_EQ(Refusal(u"K", many), failure::kOverflow);
}

TEST_F(DissolveTest, RefusesTermsNamesAndFoldersItCantUse) {
  rows->fields = {NewField("K"), NewField("V", FieldType::Double)};
  rows->rows = {{Word("a"), Number(1)}};
  EXPECT_EQ(Refusal(u"X", u"Count.K"), failure::kInvalidCall);
  EXPECT_EQ(Refusal(u"K", u"Median.V"), failure::kInvalidCall);
  EXPECT_EQ(Refusal(u"K", u"Count.X"), failure::kInvalidCall);
  EXPECT_EQ(Refusal(u"K", u"Sum.K"), failure::kTypeMismatch);
  for (const Text name : {u"a?.dbf", u".dbf", u"out.txt", u"", u"sub/out.dbf"}) {
    EXPECT_EQ(Refusal(u"K", u"Count.K", name), 52) << ToUtf8(name);
  }
  EXPECT_THROW(Dissolve({rows, {}}, u"K", u"Count.K", folder + "/none", u"out.dbf"), Failure);
  EXPECT_THROW(Dissolve({rows, {}}, u"K", u"Count.K", "/proc", u"out.dbf"), Failure);
}

TEST_F(DissolveTest, WritesWholeOrNotAtAll) {
  rows->fields = {NewField("K", FieldType::Integer)};
  for (int i = 0; i < 100000; ++i) rows->rows.push_back({Number(99999 - i)});
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{200000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const std::int32_t number = Refusal(u"K", u"Minimum.K, Count.K");
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_TRUE(number == failure::kDiskFull || number == failure::kPathFileAccess) << number;

  Run(u"K", u"Minimum.K, Count.K", u"many");
  EXPECT_EQ(layer->GetFeatureCount(), 100000);
  EXPECT_EQ(Refusal(u"K", u"Count.K", u"many.dbf"), 58);
}

}  // namespace
}  // namespace brelmon::columns::test
