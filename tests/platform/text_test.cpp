// SPDX-License-Identifier: GPL-2.0-or-later
// UTF-8 both ways, trimming, case folding, the code page, failures' words, identifiers.
#include "platform/text.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/codepage.h"
#include "platform/component.h"

namespace brelmon {
namespace {

TEST(Utf8, RoundTripsEveryScalarValue) {
  Text all;
  for (char32_t code = 1; code < 0x110000; code += code < 0x3000 ? 1 : 97) {
    if (code >= 0xD800 && code < 0xE000) continue;
    if (code < 0x10000) {
      all += static_cast<char16_t>(code);
    } else {
      all += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
      all += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    }
  }
  EXPECT_TRUE(FromUtf8(ToUtf8(all)) == all);
  EXPECT_EQ(ToUtf8(u"\u00e9\u20ac\U0001F600"), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(Utf8, MalformedSequencesBecomeReplacements) {
  const struct {
    std::string bytes;
    Text text;
  } rows[] = {
      {"a\x80z", u"a\uFFFDz"},                            // a trail byte alone
      {"\xC0\xAF", u"\uFFFD\uFFFD"},                      // overlong
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond Unicode
      {"\xE2\x82", u"\uFFFD"},                            // cut off at the end
      {"\xE2\x82|", u"\uFFFD|"},                          // cut off by another character
  };
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(FromUtf8(row.bytes)), ToUtf8(row.text));
  EXPECT_EQ(ToUtf8(Text(u"a") + char16_t{0xD800} + u"b" + char16_t{0xDC00}),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(Folding, FollowsTheSimpleFoldingsOfUnicode) {
  const struct {
    char16_t unit, folded;
  } rows[] = {
      {u'A', u'a'},           {u'[', u'['},           {u'\u00C4', u'\u00E4'},
      {u'\u00D7', u'\u00D7'}, {u'\u00B5', u'\u03BC'}, {u'\u00DF', u'\u00DF'},
      {u'\u1E9E', u'\u00DF'}, {u'\u017F', u's'},      {u'\u0130', u'\u0130'},  // no single form
      {u'\u0131', u'\u0131'}, {u'\u0178', u'\u00FF'}, {u'\u0100', u'\u0101'},
      {u'\u0101', u'\u0101'}, {u'\u03A3', u'\u03C3'}, {u'\u03C2', u'\u03C3'},
      {u'\u0416', u'\u0436'}, {u'\u1F88', u'\u1F80'}, {u'\u212A', u'k'},
      {u'\u2160', u'\u2170'}, {u'\uAB70', u'\u13A0'}, {u'\u13A0', u'\u13A0'},
      {u'\uFF21', u'\uFF41'}, {u'\uFF41', u'\uFF41'}};
  for (const auto& row : rows)
    EXPECT_EQ(FoldCase(row.unit), row.folded) << static_cast<int>(row.unit);
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    const char16_t once = FoldCase(static_cast<char16_t>(unit));
    ASSERT_EQ(FoldCase(once), once) << std::hex << unit;
  }
}

TEST(Folding, ComparesAndFinds) {
  EXPECT_TRUE(EqualNoCase(u"STRA\u1E9E\u0395", u"stra\u00DF\u03B5"));
  EXPECT_LT(CompareNoCase(u"_", u"Z"), 0);  // folded: z stands behind the underline
  EXPECT_LT(CompareNoCase(u"ab", u"ABC"), 0);
  EXPECT_EQ(FindNoCase(u"a AND b and c", u" And "), 1u);
  EXPECT_EQ(FindNoCase(u"a AND b and c", u" And ", 2), 7u);
  EXPECT_EQ(FindNoCase(u"abc", u"", 3), 3u);
  EXPECT_EQ(FindNoCase(u"abc", u"", 4), Text::npos);
}

TEST(CodePage, RoundTripsEveryByte) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const Text text = FromWindows1252(bytes);
  EXPECT_EQ(ToWindows1252(text), bytes);
  EXPECT_TRUE(FitsWindows1252(text));
  EXPECT_EQ(FromWindows1252("\x80\x81\x9F\xA0\xFF"), u"\u20AC\u0081\u0178\u00A0\u00FF");
}

TEST(CodePage, PutsAQuestionMarkForTheRest) {
  EXPECT_EQ(ToWindows1252(u"a\u0416b\U0001F600c"), "a?b?c");
  EXPECT_EQ(ToWindows1252(Text(1, char16_t{0xD83D})), "?");
  EXPECT_FALSE(FitsWindows1252(u"\u0416"));
  EXPECT_FALSE(FitsWindows1252(Text(1, char16_t{0x80})));  // the byte stands for the euro sign
}

TEST(Guids, ReadAndWriteTheirTexts) {
  constexpr Guid kSome{
      0x5B1E9A42, 0x7C3D, 0x4F16, {0x9A, 0x28, 0xE1, 0x40, 0xB7, 0x63, 0x0C, 0xD5}};
  EXPECT_EQ(ToUtf8(ToText(kSome)), "{5B1E9A42-7C3D-4F16-9A28-E140B7630CD5}");
  Guid guid;
  ASSERT_TRUE(ToGuid(u"{5b1e9a42-7C3D-4F16-9A28-E140B7630CD5}", guid));
  EXPECT_EQ(guid, kSome);
  for (const TextView bad :
       {u"", u"5B1E9A42-7C3D-4F16-9A28-E140B7630CD5", u"{5B1E9A42-7C3D-4F16-9A28-E140B7630CD5",
        u"{5B1E9A42-7C3D-4F16-9A28-E140B7630CG5}", u"{5B1E9A42-7C3D-4F169-A28-E140B7630CD5}",
        u"{5B1E9A42-7C3D-4F16-9A28-E140B7630CD5} "}) {
    EXPECT_FALSE(ToGuid(bad, guid)) << ToUtf8(bad);
  }
}

}  // namespace
}  // namespace brelmon
