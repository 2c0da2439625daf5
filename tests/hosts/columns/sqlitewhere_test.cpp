// SPDX-License-Identifier: GPL-2.0-or-later
// Random clauses over random rows: the evaluator finds what SQLite finds, or knows that it doesn't
// know.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>

#include "hosts/columns/columnbuffer.h"
#include "hosts/columns/where.h"

namespace brelmon::columns {
namespace {

const std::vector<Field>& Fields() {
  static const auto fields = [] {
    std::vector<Field> made{{"T", FieldType::String, Storage::Text},
                            {"I", FieldType::Integer, Storage::Whole},
                            {"R", FieldType::Double, Storage::Real},
                            {"D", FieldType::Date, Storage::Moment},
                            {"AT", FieldType::Date, Storage::Moment}};
    made[3].TimeOfDay = false;
    return made;
  }();
  return fields;
}
constexpr const char* kTexts[] = {"",    "a",   "A", "Karst", "karST", "O'Brien",   "50%",
                                  "a_b", " 7 ", "7", "07.0",  "1e3",   "C\u00F4te", "2020-02-29"};
constexpr std::int64_t kWholes[] = {0, 1, -1, 2, 7, -9999, 5000000000, 1234567890123456789};
constexpr double kReals[] = {0, 1, 0.5, -9999, 1e300, 20.25, 7, 5000000000.0};

struct Database {
  Database() { sqlite3_open(":memory:", &handle); }
  ~Database() { sqlite3_close(handle); }
  /// First cells of the rows, or "refused".
  std::string Ask(const std::string& sql) {
    std::string rows;
    const auto take = [](void* all, int, char** cells, char**) {
      *static_cast<std::string*>(all) += std::string(cells[0]) + " ";
      return 0;
    };
    return sqlite3_exec(handle, sql.c_str(), take, &rows, nullptr) == SQLITE_OK ? rows : "refused";
  }
  sqlite3* handle = nullptr;
};

class Trial {
 public:
  Trial() {
    database_.Ask("CREATE TABLE rows (T TEXT, I INTEGER, R REAL, D DATE, AT DATETIME)");
    for (std::size_t i = 0; i < Fields().size(); ++i)
      buffers_.emplace_back().Start(Fields()[i].Stored, kRows);
    for (std::size_t row = 0; row < kRows; ++row) AddRow(row);
    for (const ColumnBuffer& buffer : buffers_) batch_.Columns.push_back(buffer.View());
    batch_.Rows = kRows;
  }

  std::string BySqlite(const std::string& clause) {
    return database_.Ask("SELECT rowid - 1 FROM rows WHERE " + clause);
  }
  std::string ByUs(const std::string& clause) const {
    const Compiled compiled = CompileSqliteWhere(FromUtf8(clause), Fields());
    if (!compiled.where) return "unknown";
    Batch batch = batch_;
    compiled.where->Keep(batch);
    std::string rows;
    for (const std::uint32_t row : batch.Live) rows += std::to_string(row) + " ";
    return rows;
  }

  std::string Clause(int depth = 0) {
    const std::size_t kind = Below(depth < 3 ? 12 : 8);
    switch (kind) {
      case 8:
      case 9:
        return "(" + Clause(depth + 1) + " AND " + Clause(depth + 1) + ")";
      case 10:
        return Clause(depth + 1) + " OR " + Clause(depth + 1);
      case 11:
        return "NOT " + Clause(depth + 1);
      case 0:
        return Term() + OneOf({" IS NULL", " IS NOT NULL", " NOTNULL", " ISNULL"});
      case 1:
        return Term() + OneOf({" IN (", " NOT IN ("}) + Term() + ", " + Term() + ")";
      case 2:
        return Term() + OneOf({" BETWEEN ", " NOT BETWEEN "}) + Term() + " AND " + Term();
      case 3:
        return Term() + OneOf({" LIKE ", " NOT LIKE "}) +
               OneOf({"'a%'", "'%a_'", "'k%T'", "'C_te'", "'%\\_%' ESCAPE '\\'", "'7'", "NULL",
                      "'%.0'"});
      default:
        return Term() + OneOf({" = ", " <> ", " < ", " <= ", " > ", " >= ", " == ", " != "}) +
               Term();
    }
  }

 private:
  static constexpr std::size_t kRows = 40;
  std::size_t Below(std::size_t end) { return random_() % end; }
  std::string OneOf(const std::vector<std::string>& all) { return all[Below(all.size())]; }

  std::string Term() {
    switch (Below(12)) {
      case 0:
        return Quoted(kTexts[Below(std::size(kTexts))]);
      case 1:
        return OneOf(
            {"0", "7", "-1", "2.5", "1e3", "NULL", "5000000000", "'2020-02-29'", "'2020'", "''"});
      case 2:
        return "(" + Term() + OneOf({" + ", " - ", " * ", " / ", " % ", " || "}) + Term() + ")";
      case 3:
        return OneOf({"abs(", "length(", "upper(", "lower(", "round(", "trim(", "-(", "+(", "(",
                      "ltrim("}) +
               Term() + ")";
      case 4:
        return OneOf({"coalesce(", "nullif(", "ifnull(", "instr(", "substr("}) + Term() + ", " +
               Term() + ")";
      case 5:
        return "substr(" + Term() + OneOf({", 0", ", 2", ", -3"}) + OneOf({"", ", 2", ", -1"}) +
               ")";
      case 6:
        return "CAST(" + Term() + OneOf({" AS INTEGER)", " AS REAL)", " AS TEXT)"});
      default:
        return OneOf({"\"T\"", "i", "[R]", "\"D\"", "\"AT\""});
    }
  }

  void AddRow(std::size_t row) {
    batch_.Ids.push_back(static_cast<std::int64_t>(row));
    batch_.Live.push_back(static_cast<std::uint32_t>(row));
    std::string cells;
    for (std::size_t i = 0; i < Fields().size(); ++i) {
      const bool null = Below(5) == 0;
      if (null) buffers_[i].SetNull(row);
      cells += (i == 0 ? "" : ", ") + (null ? "NULL" : Cell(buffers_[i], i, row));
    }
    ASSERT_EQ(database_.Ask("INSERT INTO rows VALUES (" + cells + ")"), "");
  }
  /// Puts a value into the buffer and gives it as it is written in SQL.
  std::string Cell(ColumnBuffer& buffer, std::size_t field, std::size_t row) {
    char text[40];
    switch (field) {
      case 0:
        buffer.Texts[row] = kTexts[Below(std::size(kTexts))];
        return Quoted(std::string(buffer.Texts[row]));
      case 1:
        buffer.Wholes[row] = kWholes[Below(std::size(kWholes))];
        return std::to_string(buffer.Wholes[row]);
      case 2:
        buffer.Reals[row] = kReals[Below(std::size(kReals))];
        std::snprintf(text, sizeof text, "%.17g", buffer.Reals[row]);
        return text;
      default:
        break;
    }
    const auto day = static_cast<std::uint8_t>(27 + Below(3));
    buffer.Moments[row] = {2020, 2, day, static_cast<std::uint8_t>(Below(2)), 30};
    std::snprintf(text, sizeof text,
                  field == 3 ? "'2020-02-%02d'" : "'2020-02-%02dT%02d:30:00.000Z'", day,
                  buffer.Moments[row].Hour);
    return text;
  }
  static std::string Quoted(std::string text) {
    for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 2)
      text.insert(at, "'");
    return "'" + text + "'";
  }

  std::mt19937 random_{7};
  Database database_;
  std::vector<ColumnBuffer> buffers_;
  Batch batch_;
};

TEST(SqliteWhere, FindsTheRowsThatSqliteFinds) {
  Trial trial;
  int known = 0;
  for (int i = 0; i < 5000; ++i) {
    const std::string clause = trial.Clause();
    const std::string due = trial.BySqlite(clause), rows = trial.ByUs(clause);
    if (rows == "unknown") continue;
    ++known;
    ASSERT_EQ(rows, due) << clause;
  }
  EXPECT_GT(known, 2500);
}

TEST(SqliteWhere, SaysNothingOfWhatItDoesNotKnow) {
  Trial trial;
  for (const char* clause :
       {"t ILIKE 'a%'", "t = 'a' COLLATE NOCASE", "strftime('%Y', d) = '2020'", "rows.t = 'a'",
        "CASE WHEN i > 1 THEN 1 END", "at = '2020-02-29T00:30:00.000Z'", "at LIKE '%.000Z'",
        "i = 0x10", "i -- 2", "t IS 'a'", "length(t, 2) = 1", "(i = 1", "i = ", "", "\"T\"(1)"}) {
    EXPECT_EQ(trial.ByUs(clause), "unknown") << clause;
  }
}

}  // namespace
}  // namespace brelmon::columns
