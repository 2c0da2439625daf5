// SPDX-License-Identifier: GPL-2.0-or-later
// Day serials and the texts of dates.
#include "platform/date.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "platform/failure.h"
#include "platform/services.h"

namespace brelmon {
namespace {

auto Fields(const CivilTime& civil) {
  return std::tuple(civil.year, civil.month, civil.day, civil.hour, civil.minute, civil.second);
}

TEST(Dates, CountDaysOnBothSidesOfDayZero) {
  const struct {
    double serial;
    CivilTime civil;
  } rows[] = {
      {0, {1899, 12, 30}},
      {0.75, {1899, 12, 30, 18}},
      {-1.25, {1899, 12, 29, 6}},
      {36585.5, {2000, 2, 29, 12}},
      {-657434, {100, 1, 1}},
      {2958465, {9999, 12, 31}},
      {40000 + 1.0 / 86400, {2009, 7, 6, 0, 0, 1}},
  };
  for (const auto& row : rows) {
    EXPECT_DOUBLE_EQ(ToDate(row.civil).Serial, row.serial);
    EXPECT_EQ(Fields(ToCivil(Date{row.serial})), Fields(row.civil)) << row.serial;
  }
  EXPECT_EQ(Fields(ToCivil(Date{-0.25})), Fields({1899, 12, 30, 6}));
}

TEST(Dates, RoundToTheSecond) {
  const double almost = 0.4 / 86400;
  EXPECT_EQ(Fields(ToCivil(Date{1 - almost})), Fields({1899, 12, 31}));
  EXPECT_EQ(Fields(ToCivil(Date{-2 + 1 - (1 - almost)})), Fields({1899, 12, 30}));
  EXPECT_EQ(Fields(ToCivil(Date{5.5 + almost})), Fields({1900, 1, 4, 12}));
}

TEST(Dates, FailOutsideTheCalendar) {
  for (const CivilTime& civil : {CivilTime{99, 12, 31}, CivilTime{2023, 2, 29},
                                 CivilTime{2023, 257, 1}, CivilTime{2023, 1, 1, 24}}) {
    EXPECT_THROW(ToDate(civil), Failure);
  }
  for (const double serial :
       {-657435.0, 2958466.0, 2958465.9999999, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(ToCivil(Date{serial}), Failure) << serial;
  }
}

TEST(Dates, ReadByTheLocalesPatterns) {
  const Date noon = ToDate({2026, 11, 16, 14, 5, 7});
  EXPECT_EQ(GeneralText(noon), u"11/16/2026 2:05:07 PM");
  EXPECT_EQ(GeneralText(ToDate({2026, 1, 2})), u"1/2/2026");
  EXPECT_EQ(LongTime(ToDate({2026, 1, 2})), u"12:00:00 AM");
  EXPECT_EQ(LongTime(ToDate({2026, 1, 2, 12})), u"12:00:00 PM");
  EXPECT_EQ(LongDate(noon), u"Monday, November 16, 2026");
  EXPECT_EQ(LongDate(ToDate({100, 1, 1})), u"Friday, January 1, 0100");

  Services services;
  services.locale.ShortDatePattern = u"dd.MM.yy";
  services.locale.LongTimePattern = u"HH'h'mm''ss";
  services.locale.LongDatePattern = u"EEE d 'de' MMM y 'o''clock";
  const ServicesScope scope(services);
  EXPECT_EQ(ToUtf8(GeneralText(noon)), "16.11.2026 14h05'07");
  EXPECT_EQ(ToUtf8(LongDate(noon)), "Mon 16 de Nov 2026 oclock");
}

}  // namespace
}  // namespace brelmon
