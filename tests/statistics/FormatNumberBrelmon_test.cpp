// SPDX-License-Identifier: GPL-2.0-or-later
// Names of powers of ten, and numbers told in words.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

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

TEST(FormatNumberBrelmon, PlainNamedAndFractions) {
  const FakeWorld world;
  const auto names = MakeNumNameDictionary();
  const struct {
    std::int16_t decimals;
    std::vector<double> values;
    const char* texts;
  } rows[] = {
      {2,
       {0, -0.0, 18, 3.6, 1234.5678, 999999, -9999},
       "0; 0; 18; 3.6; 1,234.57; 999,999; -9,999; "},
      {2, {0.00123, -0.001, 1500000, -25000000}, "0; -0; 1.5 million; -25 million; "},
      {2, {12345678, 2.5E+15, 999999.01}, "12.3 million; 2.5 quadrillion; 1 million; "},
      {2, {9.996E+8, 1.5E+100, 2E+303}, "1 billion; 15 duotrigintillion; 2 centillion; "},
      {2, {0.0005, -0.0005}, "5 ten thousandths; -5 ten thousandths; "},
      {2, {0.00099999, 0.0001}, "10 ten thousandths; 1 ten thousandths; "},
      {2, {0.00005, 0.00009999}, "5 hundred thousandths; 1 ten thousandths; "},
      {2, {0.000005, 0.0000005}, "5 millionths; 500 billionths; "},
      {2, {2E-303, 2E-301, -2E-304}, "2 centillionths; 200 centillionths; -0; "},
      {0, {2.5, 1500000}, "2; 2 million; "},
      {3, {0.001}, "0.001; "},
      {8, {999999.5}, "999.9995 thousand; "},
  };
  for (const auto& row : rows) {
    std::string texts;
    for (const double value : row.values) {
      texts += ToUtf8(FormatNumberBrelmon(value, names, row.decimals)) + "; ";
    }
    EXPECT_EQ(texts, row.texts);
  }
  EXPECT_EQ(Trails(world), "");
}

/// What a reader of the words takes the number for.
double NumberIn(const std::string& words, const std::map<std::string, std::string>& powers) {
  std::string digits;
  for (const char unit : words.substr(0, words.find(' ')))
    digits += unit == ',' ? "" : std::string(1, unit);
  const auto blank = words.find(' ');
  return std::stod(blank == std::string::npos ? digits
                                              : digits + "e" + powers.at(words.substr(blank + 1)));
}

TEST(FormatNumberBrelmon, ReadsAsTheNumberItWas) {
  const FakeWorld world;
  const auto names = MakeNumNameDictionary();
  std::map<std::string, std::string> powers;
  for (int power = -303; power <= 303; ++power) {
    const Text key = GeneralText(power);
    if (names->Has(key)) powers[ToUtf8(names->Item(key)[0])] = ToUtf8(key);
  }
  std::mt19937_64 random(25);
  for (int i = 0; i < 20000; ++i) {
    const auto decimals = static_cast<std::int16_t>(random() % 9);
    const int power = static_cast<int>(random() % 606) - 303 - 6;
    const double size =
        std::stod(std::to_string(1000000 + random() % 9000000) + "e" + std::to_string(power));
    const double value = random() % 2 ? size : -size;
    const std::string words = ToUtf8(FormatNumberBrelmon(value, names, decimals));
    const double read = NumberIn(words, powers), unit = std::pow(10, -decimals);
    const bool plain = size >= 0.001 && size <= 999999;
    // Rounded once in plain digits; before a name the mantissa is, and what stands there again.
    EXPECT_NEAR(read, value, plain ? unit * 0.500001 : size * unit * 1.000001) << words;
    EXPECT_EQ(plain, words.find(' ') == std::string::npos) << words;
  }
  EXPECT_EQ(Trails(world), "");
}

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
