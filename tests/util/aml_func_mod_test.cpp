// SPDX-License-Identifier: GPL-2.0-or-later
// The helpers' results row by row, and what they show when they fail.
#include "util/aml_func_mod.h"

#include <gtest/gtest.h>

#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;
using test::Trails;

std::string Joined(const std::vector<Text>& tokens) {
  std::string joined;
  for (const Text& token : tokens) joined += "[" + ToUtf8(token) + "]";
  return joined;
}

TEST(AfterAndBefore, SplitAtTheFirstOccurrence) {
  const struct {
    const char16_t *text, *pattern, *before, *after;
  } rows[] = {
      {u"a=b=c", u"=", u"a", u"b=c"},     {u"=b", u"=", u"", u"b"},  {u"abc", u"B", u"", u""},
      {u"abc", u"d", u"", u""},           {u"", u"x", u"", u""},     {u"abc", u"", u"", u"abc"},
      {u"x, y, z", u", ", u"x", u"y, z"}, {u"abc", u"abc", u"", u""}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(Before(row.text, row.pattern)), ToUtf8(row.before));
    EXPECT_EQ(ToUtf8(After(row.text, row.pattern)), ToUtf8(row.after));
  }
}

TEST(Substitution, RemovesWithoutGoingBack) {
  EXPECT_EQ(Subst(u"a\"b\"c", u"\""), u"abc");
  EXPECT_EQ(Subst(u"aabb", u"ab"), u"ab");
  EXPECT_EQ(Subst(u"aabbXab", u"ab"), u"Xab");  // the second removal takes the first occurrence
  EXPECT_EQ(Subst(u"aaaa", u"aa"), u"");
  EXPECT_EQ(Subst(u"abc", u""), u"abc");
}

TEST(Substitution, OverwritesInPlace) {
  EXPECT_EQ(Subst(u"a.b.c", u".", u"_"), u"a_b_c");
  EXPECT_EQ(Subst(u"abcdef", u"bcd", u"X"), u"aXcdef");
  EXPECT_EQ(Subst(u"a.bcd", u".", u"XYZ"), u"aXYZd");
  EXPECT_EQ(Subst(u"ab.", u".", u"XYZ"), u"abX");  // the length stays
  EXPECT_EQ(Subst(u"..x", u".", u"--"), u"--x");   // goes on behind what it wrote
  EXPECT_EQ(Subst(u"abc", u"", u"x"), u"abc");
}

TEST(BasicTrimAvenue, TakesSetsRegardlessOfCase) {
  const struct {
    const char16_t *text, *left, *right, *trimmed;
  } rows[] = {{u"  a b  ", u" ", u" ", u"a b"},
              {u"  a  ", u"", u" ", u"  a"},
              {u"  a  ", u" ", u"", u"a  "},
              {u"xXyxX", u"x", u"X", u"y"},
              {u"a = 1 and ", u"", u" AND ", u"a = 1"},
              {u"\"q\"", u"\"", u"\"", u"q"}};
  for (const auto& row : rows) {
    Text text = row.text;
    EXPECT_EQ(ToUtf8(BasicTrimAvenue(text, row.left, row.right)), ToUtf8(row.trimmed));
    EXPECT_EQ(ToUtf8(text), ToUtf8(row.trimmed));
  }
}

TEST(InsertCommas, CountsAMinusSignAsADigit) {
  std::string texts;
  for (const Value& number :
       std::vector<Value>{123, 1234, 1234.5, 123456, 1234567, -12, -123, -1234, -123456, 0.123456,
                          u"1234.56.78", u"", u"12,", Value(), u"1,,234"}) {
    texts += ToUtf8(InsertCommas(number)) + "; ";
  }
  EXPECT_EQ(texts,
            "123; 1,234; 1,234.5; 123,456; 1,234,567; -12; -,123; -1,234; -,123,456; 0.123456; "
            "1,234.56.78; ; 12,; ; 1,,,234; ");
  FakeWorld world;
  EXPECT_EQ(InsertCommas(Null()), u"");
  EXPECT_NE(Trails(world).find("InsertCommas src/util/aml_func_mod.cpp"), std::string::npos);
}

TEST(ParseString, SplitsRowByRow) {
  const struct {
    const char16_t* text;
    char16_t delimiter;
    const char* tokens;
  } rows[] = {
      {u"a,b,c", u',', "[a][b][c]"},
      {u" a , b ", u',', "[a][b]"},
      {u"a,,b", u',', "[a][][b]"},
      {u"a,b,", u',', "[a][b]"},  // the last position is not looked at
      {u"a,b,,", u',', "[a][b][]"},
      {u",a", u',', "[][a]"},
      {u"x", u',', "[x]"},
      {u"  a   b  c ", u' ', "[a][b][c]"},  // a run of blanks makes no tokens
      {u"a b  ", u' ', "[a][b][]"},
      {u"1.23e+07", u'e', "[1.23][+07]"},
      {u"\\\\srv\\d\\f", u'\\', "[][][srv][d][f]"},
      {u"get 'my file' now", u' ', "[get][my file  now]"},
      {u"get 'my file", u' ', "[get]['my file]"},  // a lone quote stays, and ends the splitting
      {u"get 'my file'", u' ', "[get]['my file']"},
      {u"a 'b' 'c' d", u' ', "[a][b  'c' d]"},  // only the first pair counts
      {u"C:\\O'Neil\\a\\b", u'\\', "[C:][O'Neil\\a\\b]"},
  };
  for (const auto& row : rows) {
    std::vector<Text> tokens = {u"old"};
    ParseString(row.text, tokens, row.delimiter);
    EXPECT_EQ(Joined(tokens), row.tokens) << ToUtf8(row.text);
  }
}

TEST(ParseString, LeavesNothingOfBlanksAndDelimiters) {
  FakeWorld world;
  for (const TextView text : {u"", u"   ", u"\\", u" \\ \\\\ "}) {
    std::vector<Text> tokens = {u"old"};
    ParseString(text, tokens, u'\\');
    EXPECT_TRUE(tokens.empty());
  }
  EXPECT_EQ(Trails(world), "");
  EXPECT_EQ(ReturnDir(u" \\ "), u"");
  EXPECT_NE(Trails(world).find("ReturnDir src/util/aml_func_mod.cpp"), std::string::npos);
  EXPECT_NE(Trails(world).find("Subscript out of range"), std::string::npos);
  EXPECT_EQ(ReturnFilename(u""), u"");
  EXPECT_EQ(world.trails.size(), 2u);
}

TEST(Paths, SplitIntoFolderAndName) {
  const struct {
    const char16_t *path, *folder, *name;
  } rows[] = {
      {u"C:\\a\\b.mxd", u"C:\\a\\", u"b.mxd"},
      {u"b.mxd", u"b.mxd\\", u"b.mxd"},
      {u"C:\\a b\\c d\\e f.txt", u"C:\\a b\\c d\\", u"e f.txt"},
      {u"C:\\a\\", u"C:\\", u"a"},
      {u"C:\\", u"C:\\", u"C:"},
      {u"\\\\srv\\d\\f", u"\\\\srv\\d\\", u"f"},
      {u"C:\\O'Neil\\b", u"C:\\", u"O'Neil\\b"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(ReturnDir(row.path)), ToUtf8(row.folder));
    EXPECT_EQ(ToUtf8(ReturnFilename(row.path)), ToUtf8(row.name));
  }
}

TEST(Paths, ExistAndAreMadeUnique) {
  FakeWorld world;
  for (const TextView path : {u"C:\\d\\x.txt", u"C:\\d\\y.txt", u"C:\\d\\y_2.txt",
                              u"C:\\d\\x.shape", u"C:\\d\\n", u"C:\\d\\a.b.dbf", u"C:\\v.1\\n"}) {
    world.files[Text(path)] = "";
  }
  EXPECT_TRUE(ExistFileDir(u"c:\\D\\X.TXT"));
  EXPECT_TRUE(ExistFileDir(u"C:\\d"));
  EXPECT_FALSE(ExistFileDir(u""));
  const struct {
    const char16_t *path, *unique;
  } rows[] = {{u"C:\\d\\new.txt", u"C:\\d\\new.txt"}, {u"C:\\d\\x.txt", u"C:\\d\\x_2.txt"},
              {u"C:\\d\\y.txt", u"C:\\d\\y_3.txt"},   {u"C:\\d\\x.shape", u"C:\\d\\x.shape_2"},
              {u"C:\\d\\n", u"C:\\d\\n_2"},           {u"C:\\d\\a.b.dbf", u"C:\\d\\a.b_2.dbf"},
              {u"C:\\v.1\\n", u"C:\\v_2.1\\n"}};  // a folder's dot counts as well
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(MakeUniqueFilename(row.path)), ToUtf8(row.unique));
  }
  EXPECT_EQ(Trails(world), "");
}

TEST(Surroundings, ComeFromTheServices) {
  FakeWorld world;
  world.tempPath = Text(u"T:\\\0junk", 8);
  EXPECT_EQ(TempPathLocation(), u"T:\\");
  EXPECT_EQ(GetTheUserName(), u"student");
  world.userName.clear();
  EXPECT_EQ(GetTheUserName(), u"");
  const ServicesScope none{Services()};
  EXPECT_EQ(GetFullFileString(u"C:\\x"), u"C:\\x");
  EXPECT_FALSE(ExistFileDir(u"C:\\x"));
}

TEST(ReturnArcGISGeneralDir, GivesAFolderOrASentence) {
  FakeWorld world;
  const char* what[] = {"Last Browsed To", "Last Exported To", "Last", "Last Saved To", "Install"};
  for (std::int32_t code = 0; code < 5; ++code) {
    EXPECT_EQ(ToUtf8(ReturnArcGISGeneralDir(code)),
              std::string("Unable to determine ArcGIS ") + what[code] + " location!");
  }
  EXPECT_EQ(ReturnArcGISGeneralDir(5), u"");
  const Text settings = u"CU\\Software\\ESRI\\ArcCatalog\\Settings\\";
  world.SetRegistry(settings + u"LastBrowseLocation", Text(u"D:\\data\\\0", 9));
  world.SetRegistry(settings + u"LastLocation", u"");
  world.SetRegistry(u"LM\\Software\\ESRI\\ArcGIS\\InstallDir", u"C:\\arcgis\\");
  EXPECT_EQ(ToUtf8(ReturnArcGISGeneralDir(0)), "D:\\data");
  EXPECT_EQ(ToUtf8(ReturnArcGISGeneralDir(2)), "");
  EXPECT_EQ(ToUtf8(ReturnArcGISGeneralDir(4)), "C:\\arcgis");
}

}  // namespace
}  // namespace brelmon
