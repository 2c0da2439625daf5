// SPDX-License-Identifier: GPL-2.0-or-later
// Random clauses over random rows: the evaluator finds what GDAL finds, or knows that it doesn't
// know.
#include "hosts/columns/where.h"

#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <random>

#include "hosts/columns/columnbuffer.h"

namespace brelmon::columns {
namespace {

const std::vector<Field>& Fields() {
  static const auto fields = [] {
    std::vector<Field> made{
        {"TXT", FieldType::String, Storage::Text},  {"I", FieldType::Integer, Storage::Whole},
        {"BIG", FieldType::Double, Storage::Whole}, {"R", FieldType::Double, Storage::Real},
        {"DAY", FieldType::Date, Storage::Moment},  {"AT", FieldType::Date, Storage::Moment}};
    made[4].TimeOfDay = false;
    return made;
  }();
  return fields;
}
constexpr OGRFieldType kTypes[] = {OFTString, OFTInteger, OFTInteger64,
                                   OFTReal,   OFTDate,    OFTDateTime};
constexpr const char* kTexts[] = {"",    "a",   "A",           "Karst",        "karST", "O'Brien",
                                  "50%", "a_b", "axb",         "C\u00F4te",    "  ",    "-9999",
                                  "zz",  "k",   "Stra\u00DFe", "\u00C9t\u00E9"};
constexpr std::int64_t kWholes[] = {0, 1, -1, 2, 7, -9999, 100, 5000000000, 1234567890123456789};
constexpr double kReals[] = {0, -0.0, 1, 0.5, -9999, 1e300, 20.25, 1e-7, 5000000000.0};
constexpr const char* kDates[] = {"2020-02-29", "1999-12-31", "2026-11-16", "2000-01-01"};

/// The same rows for both: features of a layer, and a batch.
class Rows {
 public:
  explicit Rows(unsigned seed) : random_(seed) {
    GDALAllRegister();
    dataset_.reset(GetGDALDriverManager()->GetDriverByName("Memory")->Create("rows", 0, 0, 0,
                                                                             GDT_Unknown, nullptr));
    layer_ = dataset_->CreateLayer("rows", nullptr, wkbNone, nullptr);
    for (std::size_t i = 0; i < Fields().size(); ++i) {
      OGRFieldDefn field(Fields()[i].Name.c_str(), kTypes[i]);
      layer_->CreateField(&field);
      buffers_.emplace_back().Start(Fields()[i].Stored, kRows);
    }
    for (std::size_t row = 0; row < kRows; ++row) AddRow(row);
    for (const auto& buffer : buffers_) batch_.Columns.push_back(buffer.View());
    batch_.Rows = kRows;
  }

  std::string ByGdal(const std::string& clause) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRFeatureQuery query;
    if (query.Compile(layer_, clause.c_str()) != OGRERR_NONE) return "refused";
    std::string rows;
    for (const auto& feature : features_) {
      if (query.Evaluate(feature.get())) rows += std::to_string(feature->GetFID()) + " ";
    }
    return rows;
  }
  std::string ByUs(const std::string& clause) {
    const Compiled compiled = CompileWhere(FromUtf8(clause), Fields());
    if (!compiled.where) return compiled.refusal.empty() ? "unknown" : "refused";
    Batch batch = batch_;
    compiled.where->Keep(batch);
    std::string rows;
    for (const std::uint32_t row : batch.Live) rows += std::to_string(batch.Ids[row]) + " ";
    return rows;
  }

 private:
  static constexpr std::size_t kRows = 40;

  void AddRow(std::size_t row) {
    OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer_->GetLayerDefn()));
    feature->SetFID(static_cast<GIntBig>(row) * 3);
    batch_.Ids.push_back(feature->GetFID());
    batch_.Live.push_back(static_cast<std::uint32_t>(row));
    for (std::size_t i = 0; i < Fields().size(); ++i) {
      const int field = static_cast<int>(i);
      if (random_() % 5 == 0) {
        buffers_[i].SetNull(row);
        feature->SetFieldNull(field);
      } else {
        Set(*feature, field, buffers_[i], row);
      }
    }
    features_.push_back(std::move(feature));
  }
  void Set(OGRFeature& feature, int field, ColumnBuffer& column, std::size_t row) {
    switch (Fields()[static_cast<std::size_t>(field)].Stored) {
      case Storage::Text:
        column.Texts[row] = kTexts[random_() % std::size(kTexts)];
        return feature.SetField(field, std::string(column.Texts[row]).c_str());
      case Storage::Whole: {
        const std::size_t fit = field == 1 ? 7 : std::size(kWholes);
        column.Wholes[row] = kWholes[random_() % fit];
        return feature.SetField(field, static_cast<GIntBig>(column.Wholes[row]));
      }
      case Storage::Real:
        column.Reals[row] = kReals[random_() % std::size(kReals)];
        return feature.SetField(field, column.Reals[row]);
      default:
        break;
    }
    const auto byte = [&](unsigned from, unsigned count) {
      return static_cast<std::uint8_t>(from + random_() % count);
    };
    Moment& moment = column.Moments[row];
    moment = {2020, 2, byte(27, 3)};
    if (field == 5) moment.Hour = byte(0, 2), moment.Minute = byte(0, 2);
    feature.SetField(field, moment.Year, moment.Month, moment.Day, moment.Hour, moment.Minute,
                     moment.Second, 0);
  }

  std::mt19937 random_;
  GDALDatasetUniquePtr dataset_;
  OGRLayer* layer_ = nullptr;
  std::vector<OGRFeatureUniquePtr> features_;
  std::vector<ColumnBuffer> buffers_;
  Batch batch_;
};

/// Clauses of understood parts, with some odd ones among them.
class Clauses {
 public:
  explicit Clauses(unsigned seed) : random_(seed) {}
  std::string Next() { return Condition(3); }

 private:
  unsigned Roll(unsigned sides) { return static_cast<unsigned>(random_() % sides); }
  template <class List>
  auto Any(const List& list) {
    return list[Roll(static_cast<unsigned>(std::size(list)))];
  }
  std::string Condition(int depth) {
    const unsigned roll = Roll(10);
    if (depth > 0 && roll < 2) return "(" + Condition(depth - 1) + ") AND " + Condition(depth - 1);
    if (depth > 0 && roll < 4) return Condition(depth - 1) + " OR " + Condition(depth - 1);
    if (depth > 0 && roll < 5) return "NOT (" + Condition(depth - 1) + ")";
    if (depth > 0 && roll < 6) return "NOT " + Test();
    return Test();
  }
  std::string Test() {
    constexpr const char* kCompare[] = {"=", "<>", "!=", "<", ">", "<=", ">="};
    const std::string not_ = Roll(3) == 0 ? " NOT" : "";
    switch (Roll(9)) {
      case 0:
        return "\"TXT\" " + std::string(Any(kCompare)) + " " + Text();
      case 1:
        return "txt" + not_ + (Roll(2) ? " LIKE " : " ILIKE ") + Pattern();
      case 2:
        return "TXT" + not_ + " IN (" + Text() + "," + Text() + ")";
      case 3:
        return Any(kNumbers) + not_ + " IN (" + Constant() + ", " + Constant() + ")";
      case 4:
        return Any(kNumbers) + not_ + " BETWEEN " + Constant() + " AND " + Constant();
      case 5:
        return std::string(Roll(2) ? "DAY " : "\"AT\" ") + Any(kCompare) + " '" + Any(kDates) +
               (Roll(2) ? "'" : " 01:01:00'");
      case 6:
        return std::string(Any(kAll)) + " IS" + not_ + " NULL";
      case 7:
        return "TXT BETWEEN " + Text() + " AND " + Text();
      default:
        return Sum() + " " + Any(kCompare) + " " + Sum();
    }
  }
  std::string Sum() {
    constexpr const char* kSigns[] = {" + ", " - ", " * ", " / "};
    const std::string one = Roll(2) ? Any(kNumbers) : Constant();
    return Roll(4) == 0 ? one + Any(kSigns) + (Roll(2) ? Any(kNumbers) : Constant()) : one;
  }
  std::string Constant() {
    if (Roll(2)) return std::to_string(kWholes[Roll(8)]);
    return Roll(6) == 0 ? "1e2" : CPLSPrintf("%.15g", kReals[Roll(5)]);
  }
  std::string Text() {
    std::string text = Any(kTexts);
    for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 2) {
      text.insert(at, "'");
    }
    return "'" + text + "'";
  }
  std::string Pattern() {
    constexpr const char* kPatterns[] = {"'%'",
                                         "'kar%'",
                                         "'%r%'",
                                         "'a_b'",
                                         "'_'",
                                         "'%st'",
                                         "'C%\u00F4te'",
                                         "''",
                                         "'a%b'",
                                         "'C_te'",
                                         "'50\\%' ESCAPE '\\'",
                                         "'__%'",
                                         "'%%'",
                                         "'K!A%' ESCAPE '!'"};
    return Any(kPatterns);
  }

  std::mt19937 random_;
  const std::string kNumbers[4] = {"I", "\"BIG\"", "r", "FID"};
  static constexpr const char* kAll[] = {"TXT", "I", "BIG", "R", "DAY", "\"AT\""};
};

TEST(WhereTest, FindsWhatGdalFinds) {
  int unknown = 0, clauses = 0;
  for (unsigned seed = 1; seed <= 25; ++seed) {
    Rows rows(seed);
    Clauses some(seed);
    for (int i = 0; i < 400; ++i, ++clauses) {
      const std::string clause = some.Next();
      const std::string ours = rows.ByUs(clause);
      if (ours == "unknown") {
        ++unknown;
      } else {
        ASSERT_EQ(ours, rows.ByGdal(clause)) << clause;
      }
    }
  }
  EXPECT_LT(unknown * 5, clauses) << "clauses that the evaluator leaves to others";
}

TEST(WhereTest, TornClausesAreNeverGuessed) {
  std::mt19937 random(7);
  Rows rows(7);
  Clauses some(7);
  for (int i = 0; i < 3000; ++i) {
    std::string clause = some.Next();
    for (unsigned cuts = 1 + random() % 2; cuts > 0 && !clause.empty(); --cuts) {
      clause.erase(random() % clause.size(), 1 + random() % 3);
    }
    // Torn letters are no texts.
    if (std::any_of(clause.begin(), clause.end(), [](char c) { return c < 0; })) continue;
    const std::string ours = rows.ByUs(clause);
    if (ours != "unknown") {
      ASSERT_EQ(ours, rows.ByGdal(clause)) << clause;
    }
  }
}

}  // namespace
}  // namespace brelmon::columns
