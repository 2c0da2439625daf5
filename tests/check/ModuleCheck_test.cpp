// SPDX-License-Identifier: GPL-2.0-or-later
// The repair of the text files, and files that no author wrote. What is found in a module is held
// with the command line, on real data.
#include "check/ModuleCheck.h"

#include <gtest/gtest.h>

#include <random>

#include "check/ModuleText.h"
#include "check/Spelling.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {
namespace {

class ModuleCheckTest : public ::testing::Test {
 protected:
  ModuleCheckTest() { world.files[world.path] = "<project/>"; }
  void SetQuickLoad(const std::string& bytes) { world.files[u"C:\\Module\\QuickLoad.txt"] = bytes; }
  void SetMedia(const std::string& bytes) { world.files[u"C:\\Module\\media_list.txt"] = bytes; }
  CheckedModule Module() {
    CheckedModule module;
    module.DocumentPath = world.path;
    module.Document = world.document;
    module.Files = CurrentServices().files;
    return module;
  }
  FakeWorld world;
};

TEST_F(ModuleCheckTest, FixRewritesEncodingAndLineEndsOnly) {
  SetQuickLoad("\xEF\xBB\xBF<Query>\nGr\xC3\xBCn\n<layer>\r\n A,1 \rlast");
  SetMedia("A:gone,x\r\nB: b,1\r\n");
  const auto fixed = FixModule(Module());
  ASSERT_EQ(fixed.size(), 1u);
  EXPECT_EQ(ToUtf8(fixed[0].File), "QuickLoad.txt");
  EXPECT_EQ(ToUtf8(fixed[0].Copy), "C:\\Module\\QuickLoad_2.txt");
  EXPECT_EQ(*world.FileAt(u"C:\\Module\\QuickLoad.txt"),
            "<Query>\r\nGr\xFCn\r\n<layer>\r\n A,1 \r\nlast\r\n");
  EXPECT_EQ(*world.FileAt(fixed[0].Copy),
            "\xEF\xBB\xBF<Query>\nGr\xC3\xBCn\n<layer>\r\n A,1 \rlast");
  EXPECT_TRUE(FixModule(Module()).empty());  // nothing is left to put right
}

TEST_F(ModuleCheckTest, FixRefusesWhatThePageCannotHold) {
  const std::string bytes = "<Query>\r\nA\n\xE6\xB2\xB3\n";
  SetQuickLoad(bytes);
  const auto fixed = FixModule(Module());
  ASSERT_EQ(fixed.size(), 1u);
  EXPECT_EQ(ToUtf8(fixed[0].Refusal), "line 3: Windows-1252 has no \"\u6CB3\"");
  EXPECT_TRUE(fixed[0].Copy.empty());
  EXPECT_EQ(*world.FileAt(u"C:\\Module\\QuickLoad.txt"), bytes);
  EXPECT_EQ(world.FileAt(u"C:\\Module\\QuickLoad_2.txt"), nullptr);
}

TEST_F(ModuleCheckTest, AnyBytesAreCheckedAndNoneAreLost) {
  std::mt19937 random(20261116);
  const std::string pieces[] = {"<Layer>",      "<bookmark> ", "\r\n",     "\r",  "\n",
                                "a:b,1",        ",x:y",        "\xDF",     "1,5", "\xC3",
                                "\xEF\xBB\xBF", "\xFF\xFE",    "file\xDF", "/",   "x.url,3\r\n"};
  for (int round = 0; round < 500; ++round) {
    std::string bytes;
    for (auto left = random() % 30; left > 0; --left) {
      bytes += pieces[random() % std::size(pieces)];
      if (random() % 4 == 0) bytes += static_cast<char>(random() % 256);
    }
    SetQuickLoad(bytes);
    SetMedia(bytes);
    for (const Finding& finding : CheckModule(Module())) {
      ASSERT_GE(finding.Line, 1);
      ASSERT_EQ(ToLine(finding).find(u'\n'), Text::npos);
    }
    for (const Fixed& fixed : FixModule(Module())) {
      const std::string& now = *world.FileAt(u"C:\\Module\\" + fixed.File);
      if (fixed.Copy.empty()) {
        ASSERT_EQ(now, bytes);
      } else {
        ASSERT_EQ(*world.FileAt(fixed.Copy), bytes);
        ASSERT_TRUE(now.empty() || now.ends_with("\r\n"));
      }
    }
    world.files.erase(u"C:\\Module\\QuickLoad_2.txt");
    world.files.erase(u"C:\\Module\\media_list_2.txt");
  }
}

TEST(ModuleTextTest, Encodings) {
  const struct {
    const char* what;
    std::string bytes;
    const char* repaired;
  } rows[] = {
      {"Windows-1252 stays", "\xFC\x93\x81\r\n", "\xFC\x93\x81\r\n"},
      {"bytes that are no UTF-8 stay", "\xC3\xBC\xFC\r\n", "\xC3\xBC\xFC\r\n"},
      {"each line for itself", "\xC3\xBC\r\n\xFC\n", "\xFC\r\n\xFC\r\n"},
      {"UTF-8", "\xC3\xBC\xE2\x82\xAC\r\n", "\xFC\x80\r\n"},
      {"little-endian UTF-16", std::string("\xFF\xFE\xFC\0\x0A\0", 6), "\xFC\r\n"},
      {"big-endian UTF-16", std::string("\xFE\xFF\0\xFC\0\x0D", 6), "\xFC\r\n"},
      {"half a character of UTF-16", std::string("\xFF\xFE\xFC\0\x0A", 5), "\xFC\r\n"},
      {"UTF-16 without a mark", std::string("<\0Q\0>\0\r\0\n\0", 10), "refused"},
      {"a zero byte", std::string("<Query>\r\nQ\0\r\n", 13), "refused"},
      {"a letter and its accent", "u\xCC\x88\r\n", "\xFC\r\n"},
      {"empty", "", ""},
      {"a mark alone", "\xEF\xBB\xBF", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ModuleText(row.bytes).Repaired().value_or("refused"), row.repaired) << row.what;
  }
}

TEST(SpellingTest, CountsEdits) {
  const struct {
    TextView one, other;
    std::size_t edits;
  } rows[] = {{u"query", u"QUERY", 0}, {u"querry", u"query", 1}, {u"qeury", u"query", 1},
              {u"quer", u"query", 1},  {u"kwery", u"query", 2},  {u"", u"ab", 2}};
  for (const auto& row : rows) {
    EXPECT_EQ(Edits(row.one, row.other), row.edits) << ToUtf8(row.one);
    EXPECT_EQ(Edits(row.other, row.one), row.edits) << ToUtf8(row.one);
  }
}

}  // namespace
}  // namespace brelmon::test
