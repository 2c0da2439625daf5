// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of the map document, and the repair of the text files.
#include <random>

#include "check/ModuleText.h"
#include "statistics/brelmon_themeiddialog.h"
#include "statistics/cmdStats.h"
#include "tests/check/module.h"

namespace brelmon::test {
namespace {

class ModuleCheckTest : public ModuleTest {
 protected:
  /// Calculate Statistics on the first numeric field of the first layer.
  void Statistics() {
    world.users[u"brelmon_ThemeIDDialog"] = [](Form& form) {
      auto& dialog = static_cast<brelmon_ThemeIDDialog&>(form);
      dialog.lbxTheme.UserClick(0);
      dialog.lbxField.UserClick(0);
      dialog.cmdOK.UserClick();
    };
    const auto command = New<cmdStats>();
    command->OnCreate(world.application);
    command->OnClick();
  }
};

TEST_F(ModuleCheckTest, LayersWhoseDataIsGone) {
  world.map->AddFeatureLayer(u"quakes")->valid = false;
  world.map->AddTable(u"weather")->valid = false;
  EXPECT_EQ(
      Check(),
      "map.qgs:1: the data of the table \"weather\" is gone; the tools leave it out or refuse "
      "it; put the data back, or remove the table\n"
      "map.qgs:3: the data of the layer \"quakes\" is gone; the tools leave it out or refuse "
      "it; put the data back, or remove the layer\n");
  const auto command = New<cmdStats>();
  command->OnCreate(world.application);
  EXPECT_FALSE(command->Enabled());
}

TEST_F(ModuleCheckTest, NullsThatStopStatistics) {
  const auto layer = world.map->AddFeatureLayer(
      u"quakes",
      {{u"MAG"}, {u"NAME", FieldType::String}, {u"HIDDEN", FieldType::Double, {}, false}},
      {{4.5, u"a", Null()}, {Null(), Null(), Null()}, {5.0, u"b", 1.0}});
  EXPECT_EQ(Check(),
            "map.qgs:3: the field MAG of \"quakes\" has 1 null; Calculate Statistics on all its "
            "records stops with an error; give each record a value, or hide the field\n");
  Statistics();
  EXPECT_TOLD("\t94\r\n");
}

TEST_F(ModuleCheckTest, LikelyNoDataCodes) {
  world.map->AddFeatureLayer(u"quakes", {{u"DEPTH"}, {u"LON"}},
                             {{-9999.0, -99.0}, {10.0, -120.5}, {-9999.0, 170.0}});
  EXPECT_EQ(Check(),
            "(note) map.qgs:3: the field DEPTH of \"quakes\" holds -9999 in 2 records, which looks "
            "like \"no data\"; the statistics count it like any other number; tell students to "
            "ignore the value -9999\n");
  EXPECT_FALSE(WouldFail(CheckModule(Module())));
}

TEST_F(ModuleCheckTest, ApostropheInTheFolder) {
  world.files.clear();
  world.path = u"C:\\Bob's\\map.qgs";
  world.files[world.path] = "";
  world.files[u"C:\\Bob's\\QuickLoad.txt"] = world.files[u"C:\\Bob's\\media_list.txt"] = "";
  EXPECT_EQ(Check(),
            "map.qgs:1: the tools can't follow the apostrophe in the module's path; they look for "
            "QuickLoad.txt and media_list.txt in C:\\; C:\\Bobs\\\n");
  Jump(&QuickLoad::optViews);
  EXPECT_TOLD("Unable to find Brelmon 'QuickLoad.txt' file.");
}

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
  const std::string pieces[] = {"<Layer>", "<bookmark> ", "\r\n",         "\r",
                                "\n",      "a:b,1",       ",x:y",         "\xDF",
                                "1,5",     "\xC3",        "\xEF\xBB\xBF", "\xFF\xFE"};
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
      {"empty", "", ""},
      {"a mark alone", "\xEF\xBB\xBF", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ModuleText(row.bytes).Repaired().value_or("refused"), row.repaired) << row.what;
  }
}

}  // namespace
}  // namespace brelmon::test
