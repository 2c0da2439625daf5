// SPDX-License-Identifier: GPL-2.0-or-later
// Clauses over the rows of both kinds, of understood parts with some odd ones among them.
#pragma once

#include <cstdio>

#include "tests/support/bothrows.h"

namespace brelmon::test {

class Clauses {
 public:
  explicit Clauses(Roll roll) : roll_(std::move(roll)) {}
  std::string Next() { return Condition(3); }

 private:
  std::string Condition(int depth) {
    const unsigned roll = depth > 0 ? roll_(10) : 9;
    if (roll < 2) return "(" + Condition(depth - 1) + ") AND " + Condition(depth - 1);
    if (roll < 4) return Condition(depth - 1) + " OR " + Condition(depth - 1);
    if (roll < 5) return "NOT (" + Condition(depth - 1) + ")";
    return (roll < 6 ? "NOT " : "") + Test();
  }
  std::string Test() {
    constexpr const char* kCompare[] = {"=", "<>", "!=", "<", ">", "<=", ">="};
    constexpr const char* kDates[] = {"2020-02-29", "1999-12-31", "2026-11-16",
                                      "2000-01-01", "2020/02/28", "2020-2-9"};
    constexpr const char* kTimes[] = {"",          " 01:01:00",   " 01:01",
                                      "T00:01:00", " 01:01:00.5", " 01:01:00+00"};
    const std::string not_ = roll_(3) == 0 ? " NOT" : "";
    switch (roll_(10)) {
      case 0:
        return "\"TXT\" " + std::string(Any(roll_, kCompare)) + " " + Quoted();
      case 1:
        return "txt" + not_ + (roll_(2) ? " LIKE " : " ILIKE ") + Pattern();
      case 2:
        return "TXT" + not_ + " IN (" + Quoted() + "," + Quoted() + ")";
      case 3:
        return Number() + not_ + " IN (" + Constant() + ", " + Constant() + ")";
      case 4:
        return Number() + not_ + " BETWEEN " + Constant() + " AND " + Constant();
      case 5:
        return std::string(roll_(2) ? "DAY " : "\"AT\" ") + Any(roll_, kCompare) + " '" +
               Any(roll_, kDates) + Any(roll_, kTimes) + "'";
      case 6:
        return std::string(Any(roll_, kAll)) + " IS" + not_ + " NULL";
      case 7:
        return "TXT" + not_ + " BETWEEN " + Quoted() + " AND " + Quoted();
      case 8:
        return Quoted() + " " + Any(roll_, kCompare) + " " + Any(roll_, kAll);
      default:
        return Sum(2) + " " + Any(roll_, kCompare) + " " + Sum(2);
    }
  }
  std::string Sum(int depth) {
    constexpr const char* kSigns[] = {" + ", " - ", " * ", " / ", " % "};
    const std::string one = roll_(2) ? Number() : Constant();
    if (depth == 0 || roll_(4) != 0) return one;
    const std::string sign = Any(roll_, kSigns), other = Sum(depth - 1);
    return roll_(3) == 0 ? "-(" + one + sign + other + ")" : one + sign + other;
  }
  std::string Number() {
    constexpr const char* kNumbers[] = {"I", "\"BIG\"", "r", "FID"};
    return Any(roll_, kNumbers);
  }
  std::string Constant() {
    switch (roll_(8)) {
      case 0:
        return "1e2";
      case 1:
        return std::to_string(static_cast<int>(roll_(65536)) - 32768);
      case 2:
        return std::to_string(roll_(256)) + "." + std::to_string(roll_(256)) + "e" +
               std::to_string(static_cast<int>(roll_(256)) - 128);
      case 3:
      case 4: {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.15g", kReals[roll_(5)]);
        return digits;
      }
      default:
        return std::to_string(Any(roll_, kWholes));
    }
  }
  std::string Quoted() {
    std::string text = Any(roll_, kTexts);
    if (roll_(5) == 4) text += static_cast<char>(32 + roll_(95));
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
    return roll_(5) == 4 ? Quoted() : Any(roll_, kPatterns);
  }

  Roll roll_;
  static constexpr const char* kAll[] = {"TXT", "I", "BIG", "R", "DAY", "\"AT\""};
};

}  // namespace brelmon::test
