// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers as text and back, the two formatters, conversions of values.
#include "platform/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/numberformat.h"
#include "platform/services.h"

namespace brelmon {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

Services CommaLocale() {
  Services services;
  services.locale.DecimalSymbol = u',';
  services.locale.GroupSymbol = u'.';
  return services;
}

template <class Body>
std::int32_t NumberOf(Body body) {
  try {
    body();
  } catch (const Failure& failed) {
    return failed.Number;
  }
  return 0;
}

TEST(GeneralText, HasFifteenDigits) {
  const struct {
    double value;
    const char* text;
  } rows[] = {{0, "0"},
              {-0.0, "0"},
              {18, "18"},
              {-9999, "-9999"},
              {0.1 + 0.2, "0.3"},
              {1.0 / 3, "0.333333333333333"},
              {1e14, "100000000000000"},
              {999999999999999, "999999999999999"},
              {1e15, "1E+15"},
              {1.5e16, "1.5E+16"},
              {1234567890123456, "1.23456789012346E+15"},
              {0.0001, "0.0001"},
              {0.00001, "1E-05"},
              {-2.5e-7, "-2.5E-07"},
              {1e100, "1E+100"},
              {5e-324, "4.94065645841247E-324"},
              {kInfinity, "Infinity"},
              {-kInfinity, "-Infinity"},
              {std::nan(""), "NaN"}};
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(GeneralText(row.value)), row.text);
  const ServicesScope scope(CommaLocale());
  EXPECT_EQ(GeneralText(-1.5), u"-1,5");
  EXPECT_EQ(GeneralText(std::numeric_limits<std::int32_t>::min()), u"-2147483648");
}

TEST(ParseNumber, TakesNumeralsOfTheLocale) {
  const struct {
    const char16_t* text;
    double value;
  } rows[] = {{u"0", 0},
              {u" -12 ", -12},
              {u"+3.5", 3.5},
              {u".5", 0.5},
              {u"5.", 5},
              {u"1,234,567.8", 1234567.8},
              {u"12,34", 1234},
              {u"1e3", 1000},
              {u"1E+003", 1000},
              {u"2d-2", 0.02},
              {u"2D2", 200},
              {u"007", 7},
              {u"1e-999", 0},
              {u"-1e-99999999999999999999", 0},
              {u"0e999999999999", 0},
              {u"0.000e999", 0},
              {u"1.7976931348623157E308", std::numeric_limits<double>::max()}};
  for (const auto& row : rows) {
    const auto number = ParseNumber(row.text);
    ASSERT_TRUE(number) << ToUtf8(row.text);
    EXPECT_EQ(*number, row.value) << ToUtf8(row.text);
  }
  EXPECT_EQ(ParseNumber(Text(u"0.") + Text(5000, u'0') + u"1e5001"), 1);
  EXPECT_EQ(ParseNumber(u"1" + Text(5000, u'0') + u"e-5000"), 1);
}

TEST(ParseNumber, RefusesEverythingElse) {
  for (const TextView text :
       {u"",          u" ",     u"-",       u"+-1", u".",     u",",
        u",1",        u"1.2.3", u"1.5,000", u"e5",  u"1e",    u"1e+",
        u"1e5.0",     u"12a",   u"1 2",     u"- 1", u"--1",   u"0x10",
        u"inf",       u"nan",   u"\u0661",  u"1\n", u"1e309", u"1e99999999999999999999",
        u"1\u00A0000"}) {
    EXPECT_FALSE(ParseNumber(text)) << ToUtf8(text);
  }
  EXPECT_FALSE(ParseNumber(Text(400, u'9')));
  EXPECT_FALSE(ParseNumber(TextView(u"1\0002", 3)));
}

TEST(ParseNumber, FollowsTheLocale) {
  const ServicesScope scope(CommaLocale());
  EXPECT_EQ(ParseNumber(u"1.234,5"), 1234.5);
  EXPECT_EQ(ParseNumber(u"1,5e2"), 150);
  EXPECT_FALSE(ParseNumber(u"1,2,3"));
}

TEST(Conversions, FailWithThePlatformsNumbers) {
  EXPECT_EQ(ToLong(2.5), 2);
  EXPECT_EQ(ToLong(3.5), 4);
  EXPECT_EQ(ToLong(-2.5), -2);
  EXPECT_EQ(ToLong(u"+005"), 5);
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(NumberOf([] { ToLong(2147483647.5); }), failure::kOverflow);
  EXPECT_EQ(NumberOf([] { ToLong(std::nan("")); }), failure::kOverflow);
  EXPECT_EQ(NumberOf([] { ToDouble(u"abc"); }), failure::kTypeMismatch);
  EXPECT_EQ(NumberOf([] { ToDouble(u"1e999"); }), failure::kOverflow);
  EXPECT_EQ(ToInteger(u"-32768"), -32768);
  EXPECT_EQ(NumberOf([] { ToInteger(u"32768"); }), failure::kOverflow);
}

TEST(NumericFormat, AlignsGroupsAndDropsZeros) {
  const struct {
    double value;
    std::int32_t places;
    const char* text;
  } rows[] = {{3.6, 2, "3.6"},
              {18, 2, "18"},
              {1234.5678, 2, "1,234.57"},
              {-9999, 2, "-9,999"},
              {999999, 0, "999,999"},
              {100, 0, "100"},
              {-0.001, 2, "-0"},
              {-0.0, 2, "0"},
              {0.125, 2, "0.12"},  // ties to even
              {0.375, 2, "0.38"},
              {2.5, 0, "2"},
              {-999.999, 2, "-1,000"},
              {1e15, 1, "1,000,000,000,000,000"}};
  NumericFormat format;
  format.AlignmentWidth = 0;
  format.UseSeparator = true;
  for (const auto& row : rows) {
    format.RoundingValue = row.places;
    EXPECT_EQ(ToUtf8(format.ValueToString(row.value)), row.text);
  }
  EXPECT_EQ(format.ValueToString(std::numeric_limits<double>::max()).size(), 309u + 102u);
}

TEST(NumericFormat, HonoursItsSettings) {
  NumericFormat format;
  format.RoundingValue = 2;
  EXPECT_EQ(format.ValueToString(1234.5), u"      1234.5");
  format.AlignmentOption = 1;
  format.ShowPlusSign = format.ZeroPad = true;
  EXPECT_EQ(format.ValueToString(1.5), u"+1.50       ");
  EXPECT_EQ(ToUtf8(format.ValueToString(kInfinity)), "Infinity    ");
  {
    const ServicesScope scope(CommaLocale());
    format.UseSeparator = true;
    format.AlignmentWidth = 0;
    EXPECT_EQ(format.ValueToString(-1234.5), u"-1.234,50");
  }
  format.RoundingValue = -1;
  EXPECT_EQ(NumberOf([&] { format.ValueToString(1); }), failure::kInvalidCall);
  format.RoundingValue = 0;
  format.RoundingOption = 1;
  EXPECT_EQ(NumberOf([&] { format.ValueToString(1); }), failure::kInvalidCall);
}

TEST(ScientificNumberFormat, CarriesARoundingIntoItsExponent) {
  ScientificNumberFormat format;
  format.DecimalPlaces = 2;
  EXPECT_EQ(format.ValueToString(12345678), u"1.23e+07");
  EXPECT_EQ(format.ValueToString(9.996e8), u"1.00e+09");
  EXPECT_EQ(format.ValueToString(0.0005), u"5.00e-04");
  EXPECT_EQ(format.ValueToString(1e300), u"1.00e+300");
  format.DecimalPlaces = 0;
  EXPECT_EQ(format.ValueToString(2.5e6), u"2e+06");
  format.DecimalPlaces = 1;
  const ServicesScope scope(CommaLocale());
  EXPECT_EQ(format.ValueToString(-2.5e6), u"-2,5e+06");
  EXPECT_EQ(ParseNumber(format.ValueToString(-2.5e6)), -2.5e6);
}

TEST(Values, ConvertAsThePlatformDoes) {
  EXPECT_EQ(Value().ToDouble(), 0);
  EXPECT_EQ(Value(true).ToLong(), -1);
  EXPECT_EQ(Value(u" 2.5 ").ToLong(), 2);
  EXPECT_EQ(Value(Date{1.5}).ToDouble(), 1.5);
  EXPECT_EQ(Value().ToText(), u"");
  EXPECT_EQ(Value(false).ToText(), u"False");
  EXPECT_EQ(Value(1e15).ToText(), u"1E+15");
  EXPECT_EQ(Value(Date{36526}).ToText(), u"1/1/2000");
  EXPECT_EQ(Value(36526.25).ToDate(), Date{36526.25});
  EXPECT_FALSE(Value(Null()).ToObject());
  const auto object = New<UID>(u"x");
  EXPECT_TRUE(Same(Value(object).ToObject(), object));
}

TEST(Values, FailWhereThereIsNoConversion) {
  const Value null = Null();
  const Value object = New<UID>(u"x");
  EXPECT_EQ(NumberOf([&] { null.ToDouble(); }), failure::kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([&] { null.ToText(); }), failure::kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([&] { null.ToDate(); }), failure::kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([&] { object.ToLong(); }), failure::kTypeMismatch);
  EXPECT_EQ(NumberOf([&] { Value(u"five").ToLong(); }), failure::kTypeMismatch);
  EXPECT_EQ(NumberOf([&] { Value(5).ToObject(); }), failure::kTypeMismatch);
  EXPECT_EQ(NumberOf([&] { Value(1e10).ToLong(); }), failure::kOverflow);
  EXPECT_EQ(NumberOf([&] { Value(1e10).ToDate(); }), failure::kOverflow);
}

}  // namespace
}  // namespace brelmon
