// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/common/systemlocale.h"

#include <gtest/gtest.h>

namespace brelmon::host {
namespace {

TEST(SystemLocale, EnglishByAnyOfItsNames) {
  for (const char* name : {"", "C", "POSIX", "C.UTF-8", "en_US.UTF-8", "en_US"}) {
    const Locale locale = LocaleNamed(name, name), due;
    EXPECT_EQ(locale.DecimalSymbol, due.DecimalSymbol) << name;
    EXPECT_EQ(locale.ShortDatePattern, due.ShortDatePattern) << name;
    EXPECT_EQ(locale.LongTimePattern, due.LongTimePattern) << name;
    EXPECT_EQ(locale.LongDatePattern, due.LongDatePattern) << name;
    EXPECT_EQ(locale.Months, due.Months) << name;
  }
}

TEST(SystemLocale, PatternsHoldPlainBlanksAndFullYears) {
  const Locale german = LocaleNamed("de_DE.UTF-8@euro", "de_DE.UTF-8@euro");
  EXPECT_EQ(german.DecimalSymbol, u',');
  EXPECT_EQ(german.GroupSymbol, u'.');
  EXPECT_EQ(german.ShortDatePattern, u"dd.MM.yyyy");
  EXPECT_EQ(german.LongTimePattern, u"HH:mm:ss");
  EXPECT_EQ(german.LongDatePattern, u"EEEE, d. MMMM yyyy");
  EXPECT_EQ(german.Months[2], u"M\u00E4rz");
  EXPECT_EQ(german.Weekdays[0], u"Sonntag");
  for (const char* name : {"en_AU", "fr_FR", "th_TH", "fa_IR", "zh_TW", "ar_EG", "bg_BG"}) {
    SCOPED_TRACE(name);
    const Locale locale = LocaleNamed(name, name);
    for (const Text& pattern :
         {locale.ShortDatePattern, locale.LongTimePattern, locale.LongDatePattern}) {
      EXPECT_EQ(pattern.find_first_of(u"\u00A0\u202F\u200FGLcBKkz"), Text::npos) << ToUtf8(pattern);
      EXPECT_EQ(pattern.find(u"yyyyy"), Text::npos);
    }
    EXPECT_NE(locale.ShortDatePattern.find(u"yyyy"), Text::npos);
  }
}

TEST(SystemLocale, EnvironmentInItsOrder) {
  for (const char* name : {"LC_ALL", "LC_TIME", "LANG", "BRELMON_LOCALE"}) ::unsetenv(name);
  ::setenv("LC_NUMERIC", "de_DE.UTF-8", 1);
  EXPECT_EQ(SystemLocale().DecimalSymbol, u',');
  EXPECT_EQ(SystemLocale().Weekdays[0], u"Sunday");
  ::setenv("LC_ALL", "C", 1);
  EXPECT_EQ(SystemLocale().DecimalSymbol, u'.');
  ::setenv("BRELMON_LOCALE", "de_DE", 1);
  EXPECT_EQ(SystemLocale().Weekdays[0], u"Sonntag");
  for (const char* name : {"LC_NUMERIC", "LC_ALL", "BRELMON_LOCALE"}) ::unsetenv(name);
}

}  // namespace
}  // namespace brelmon::host
