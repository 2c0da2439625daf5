// SPDX-License-Identifier: GPL-2.0-or-later
// Names of powers of ten, and numbers told in words.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "platform/number.h"
#include "statistics/BrelmonFunctions.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

TEST(NumberNames, HoldEveryRowInOrder) {
  const auto names = MakeNumNameDictionary();
  ASSERT_EQ(names->Count(), 207);
  // FNV-1a over "key=name;" of all rows in order, of a list that was checked by hand.
  std::uint64_t digest = 14695981039346656037u;
  std::int32_t position = 0;
  for (std::int32_t power = -303; power <= 303; ++power) {
    const Text key = GeneralText(power);
    if (!names->Has(key)) continue;
    ASSERT_EQ(names->Item(++position), names->Item(key)) << power;  // ascending
    for (const char unit : ToUtf8(key + u"=" + names->Item(key)[0] + u";")) {
      digest = (digest ^ static_cast<unsigned char>(unit)) * 1099511628211u;
    }
  }
  EXPECT_EQ(position, 207);
  EXPECT_EQ(digest, 0x90944dc9741508e3u);
}

TEST(NumberNames, KeepTheirOddities) {
  const auto names = MakeNumNameDictionary();
  const std::map<Text, NumberName> rows = {
      {u"-303", {u"centillionths", u"10^-303"}},
      {u"-249", {u"duooctogintilliovnths", u"10^-249"}},
      {u"249", {u"duooctogintillion", u"10^249"}},
      {u"-21", {u"sexillionths", u"10^-21"}},
      {u"-100", {u"Googolths", u"10^-100"}},
      {u"100", {u"Googol", u"10^100"}},
      {u"-5", {u"hundred thousandths", u"10^-6"}},
      {u"-4", {u"ten thousandths", u"10^-6"}},
      {u"-2", {u"hundredths", u"10^-2"}},
      {u"3", {u"thousand", u"10^3"}},
  };
  for (const auto& [key, row] : rows) EXPECT_EQ(names->Item(key), row) << ToUtf8(key);
  for (const auto* absent : {u"0", u"1", u"2", u"-1"}) EXPECT_FALSE(names->Has(absent));
}

struct NumberRow {
  double value;
  std::int16_t decimals;
  const char* text;
};

class Numbers : public testing::TestWithParam<NumberRow> {};

TEST_P(Numbers, InReports) {
  const NumberRow& row = GetParam();
  const FakeWorld world;
  EXPECT_EQ(ToUtf8(FormatNumberBrelmon(row.value, MakeNumNameDictionary(), row.decimals)),
            row.text);
  EXPECT_EQ(Trails(world), "");
}

INSTANTIATE_TEST_SUITE_P(Plain, Numbers,
                         testing::Values(NumberRow{0, 2, "0"}, NumberRow{-0.0, 2, "0"},
                                         NumberRow{18, 2, "18"}, NumberRow{3.6, 2, "3.6"},
                                         NumberRow{1234.5678, 2, "1,234.57"},
                                         NumberRow{999999, 2, "999,999"},
                                         NumberRow{-9999, 2, "-9,999"}, NumberRow{0.00123, 2, "0"},
                                         NumberRow{0.001, 3, "0.001"}, NumberRow{-0.001, 2, "-0"},
                                         NumberRow{2.5, 0, "2"}));
INSTANTIATE_TEST_SUITE_P(
    Named, Numbers,
    testing::Values(NumberRow{1500000, 2, "1.5 million"}, NumberRow{25000000, 2, "25 million"},
                    NumberRow{250000000, 2, "250 million"}, NumberRow{-25000000, 2, "-25 million"},
                    NumberRow{12345678, 2, "12.3 million"},
                    NumberRow{2.5E+15, 2, "2.5 quadrillion"}, NumberRow{1500000, 0, "2 million"},
                    NumberRow{999999.01, 2, "1 million"}, NumberRow{9.996E+8, 2, "1 billion"},
                    NumberRow{999999.5, 8, "999.9995 thousand"},
                    NumberRow{1.5E+100, 2, "15 duotrigintillion"},
                    NumberRow{2E+303, 2, "2 centillion"}));
INSTANTIATE_TEST_SUITE_P(Fractions, Numbers,
                         testing::Values(NumberRow{0.0005, 2, "5 ten thousandths"},
                                         NumberRow{-0.0005, 2, "-5 ten thousandths"},
                                         NumberRow{0.00099999, 2, "10 ten thousandths"},
                                         NumberRow{0.0001, 2, "1 ten thousandths"},
                                         NumberRow{0.00005, 2, "5 hundred thousandths"},
                                         NumberRow{0.00009999, 2, "1 ten thousandths"},
                                         NumberRow{0.000005, 2, "5 millionths"},
                                         NumberRow{0.0000005, 2, "500 billionths"},
                                         NumberRow{2E-303, 2, "2 centillionths"},
                                         NumberRow{2E-301, 2, "200 centillionths"},
                                         NumberRow{-2E-304, 2, "-0"}));

TEST(FormatNumberBrelmon, WritesOutWhatHasNoName) {
  const FakeWorld world;
  const Text text = FormatNumberBrelmon(1E+304, MakeNumNameDictionary(), 2);
  EXPECT_EQ(text.size(), 304u + 101u);  // digits of the exact value, and separators
  EXPECT_TRUE(text.starts_with(u"9,999,999,999,999,999,")) << ToUtf8(text);
}

TEST(FormatNumberBrelmon, ReadsItsOwnTextInAnyLocale) {
  const FakeWorld world;
  Services services = CurrentServices();
  services.locale.DecimalSymbol = u',';
  services.locale.GroupSymbol = u'.';
  const ServicesScope german(services);
  const auto names = MakeNumNameDictionary();
  EXPECT_EQ(ToUtf8(FormatNumberBrelmon(1234.5, names, 2)), "1.234,5");
  EXPECT_EQ(ToUtf8(FormatNumberBrelmon(1500000, names, 2)), "1,5 million");
}

TEST(FormatNumberBrelmon, IsEmptyAfterAFailure) {
  const FakeWorld world;
  EXPECT_EQ(FormatNumberBrelmon(1500000, nullptr, 2), u"");
  EXPECT_EQ(FormatNumberBrelmon(HUGE_VAL, MakeNumNameDictionary(), 2), u"");
  EXPECT_EQ(FormatNumberBrelmon(3.5, MakeNumNameDictionary(), -1), u"");
  ASSERT_EQ(world.trails.size(), 3u);
  EXPECT_NE(ToUtf8(world.trails[0]).find("\tFormatNumberBrelmon src/statistics/"),
            std::string::npos);
}

}  // namespace
}  // namespace brelmon
