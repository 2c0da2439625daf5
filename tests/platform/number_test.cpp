// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers as text and back, the two formatters, conversions of values.
#include "platform/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "frame/guard.h"
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

TEST(GeneralText, HasFifteenDigits) {
  std::string texts;
  for (const double value :
       {0.0, -0.0, -9999.0, 0.1 + 0.2, 1.0 / 3, 1e14, 999999999999999.0, 1e15, 1.5e16,
        1234567890123456.0, 0.0001, 0.00001, -2.5e-7, 1e100, 5e-324, kInfinity, std::nan("")}) {
    texts += ToUtf8(GeneralText(value)) + " ";
  }
  EXPECT_EQ(
      texts,
      "0 0 -9999 0.3 0.333333333333333 100000000000000 999999999999999 1E+15 1.5E+16 "
      "1.23456789012346E+15 0.0001 1E-05 -2.5E-07 1E+100 4.94065645841247E-324 Infinity NaN ");
  const ServicesScope scope(CommaLocale());
  EXPECT_EQ(GeneralText(-1.5), u"-1,5");
  EXPECT_EQ(ParseNumber(u"1.234,5"), 1234.5);
}

TEST(ParseNumber, TakesNumeralsOfTheLocale) {
  std::string texts;
  for (const Text text :
       {u"0", u" -12 ", u"+3.5", u".5", u"5.", u"12,34", u"1e3", u"1E+003", u"2d-2", u"2D2", u"007",
        u"-1e-99999999999999999999", u"0e999999999999", u"0.000e999"}) {
    texts += ToUtf8(GeneralText(ParseNumber(text).value_or(-1))) + " ";
  }
  EXPECT_EQ(texts, "0 -12 3.5 0.5 5 1234 1000 1000 0.02 200 7 0 0 0 ");
  EXPECT_EQ(ParseNumber(u"1.7976931348623157E308"), std::numeric_limits<double>::max());
  EXPECT_EQ(ParseNumber(u"0." + Text(5000, u'0') + u"1e5001"), 1);
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

TEST(Conversions, FailWithThePlatformsNumbers) {
  EXPECT_EQ(ToLong(2.5), 2);
  EXPECT_EQ(ToLong(u"+005"), 5);
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(Guard::Ignore([] { ToLong(2147483647.5); }), failure::kOverflow);
  EXPECT_EQ(Guard::Ignore([] { ToLong(std::nan("")); }), failure::kOverflow);
  EXPECT_EQ(Guard::Ignore([] { ToDouble(u"abc"); }), failure::kTypeMismatch);
  EXPECT_EQ(Guard::Ignore([] { ToDouble(u"1e999"); }), failure::kOverflow);
  EXPECT_EQ(ToInteger(u"-32768"), -32768);
  EXPECT_EQ(Guard::Ignore([] { ToInteger(u"32768"); }), failure::kOverflow);
}

TEST(NumericFormat, AlignsGroupsAndDropsZeros) {
  NumericFormat format;
  format.AlignmentWidth = 0;
  format.UseSeparator = true;
  const auto told = [&](std::int32_t places, std::initializer_list<double> values) {
    format.RoundingValue = places;
    std::string texts;
    for (const double value : values) texts += ToUtf8(format.ValueToString(value)) + " ";
    return texts;
  };
  EXPECT_EQ(told(2, {3.6, 18, 1234.5678, -9999}), "3.6 18 1,234.57 -9,999 ");
  EXPECT_EQ(told(2, {-0.001, -0.0, 0.125, 0.375, -999.999}),
            "-0 0 0.12 0.38 -1,000 ");  // ties to even
  EXPECT_EQ(told(0, {999999, 100, 2.5, 1e15}), "999,999 100 2 1,000,000,000,000,000 ");
  EXPECT_EQ(told(0, {std::numeric_limits<double>::max()}).size(), 309u + 102u + 1u);
}

TEST(NumericFormat, HonoursItsSettings) {
  NumericFormat format;
  format.RoundingValue = 2;
  EXPECT_EQ(format.ValueToString(1234.5), u"      1234.5");
  format.AlignmentOption = 1;
  format.ShowPlusSign = format.ZeroPad = format.UseSeparator = true;
  EXPECT_EQ(format.ValueToString(1.5), u"+1.50       ");
  const ServicesScope scope(CommaLocale());
  EXPECT_EQ(format.ValueToString(-1234.5), u"-1.234,50   ");
  format.RoundingValue = -1;
  EXPECT_EQ(Guard::Ignore([&] { format.ValueToString(1); }), failure::kInvalidCall);
}

TEST(ScientificNumberFormat, CarriesARoundingIntoItsExponent) {
  ScientificNumberFormat format;
  format.DecimalPlaces = 2;
  EXPECT_EQ(format.ValueToString(12345678), u"1.23e+07");
  EXPECT_EQ(format.ValueToString(9.996e8), u"1.00e+09");
  EXPECT_EQ(format.ValueToString(0.0005), u"5.00e-04");
  const ServicesScope scope(CommaLocale());
  EXPECT_EQ(format.ValueToString(-2.5e6), u"-2,50e+06");
}

TEST(Values, ConvertAsThePlatformDoes) {
  EXPECT_EQ(Value().ToDouble(), 0);
  EXPECT_EQ(Value(true).ToLong(), -1);
  EXPECT_EQ(Value(Date{1.5}).ToDouble(), 1.5);
  EXPECT_EQ(Value().ToText(), u"");
  EXPECT_EQ(Value(36526.25).ToDate(), Date{36526.25});
  EXPECT_FALSE(Value(Null()).ToObject());
  const auto object = New<UID>(u"x");
  EXPECT_TRUE(Same(Value(object).ToObject(), object));
}

TEST(Values, FailWhereThereIsNoConversion) {
  const Value null = Null();
  const Value object = New<UID>(u"x");
  EXPECT_EQ(Guard::Ignore([&] { null.ToDouble(); }), failure::kInvalidUseOfNull);
  EXPECT_EQ(Guard::Ignore([&] { object.ToLong(); }), failure::kTypeMismatch);
  EXPECT_EQ(Guard::Ignore([&] { Value(u"five").ToLong(); }), failure::kTypeMismatch);
  EXPECT_EQ(Guard::Ignore([&] { Value(5).ToObject(); }), failure::kTypeMismatch);
  EXPECT_EQ(Guard::Ignore([&] { Value(1e10).ToLong(); }), failure::kOverflow);
}

}  // namespace
}  // namespace brelmon
