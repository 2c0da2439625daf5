// SPDX-License-Identifier: GPL-2.0-or-later
// The Summarize dialog up to its OK.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "statistics/brelmon_themeiddialog.h"
#include "tests/summarize/summaryworld.h"

namespace brelmon::test {
namespace {

using Dialog = frm_Brelmon_Summarize;
using SummarizeDialog = SummarizeTest;

std::string Rows(ComboBox& box) {
  Text rows;
  for (std::int32_t row = 0; row < box.ListCount(); ++row) {
    rows += (row == 0 ? u"" : u"; ") + box.List(row);
  }
  return ToUtf8(rows);
}

TEST_F(SummarizeDialog, AnotherFieldOrItemFillsTheTreeAnew) {
  OpenOn(quakes, [&](Dialog& dialog) {
    dialog.cbxFieldName.UserChoose(1);
    EXPECT_EQ(ToUtf8(dialog.treeFields.NodeAt(1).Key()), "key_2");
    EXPECT_EQ(dialog.treeFields.NodeAt(1).Image(), 3);
    EXPECT_EQ(dialog.treeFields.Images()->Item(3)->Description, u"Text field");
    EXPECT_EQ(dialog.treeFields.Images()->Item(4)->Description, u"Numeric field");
    dialog.cbxLayer.UserChoose(1);
    EXPECT_EQ(Rows(dialog.cbxFieldName), "WHO");
    EXPECT_EQ(dialog.treeFields.NodeCount(), 0);
  });
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SummarizeDialog, TicksAreThePicturesAndGoWithTheField) {
  Open([](Dialog& dialog) {
    const auto clicked = [&](const char16_t* key) {
      dialog.treeFields.UserNodeClick(dialog.treeFields.NodeOf(key));
      return dialog.treeFields.NodeOf(key).Image();
    };
    EXPECT_EQ(clicked(u"key_3_3"), 2);
    EXPECT_EQ(clicked(u"key_3"), 4);
    EXPECT_EQ(clicked(u"key_3_3"), 1);
    EXPECT_EQ(clicked(u"key_3_3"), 2);
    dialog.cbxFieldName.UserChoose(0);
    EXPECT_EQ(dialog.treeFields.NodeOf(u"key_3_3").Image(), 1);
  });
}

TEST_F(SummarizeDialog, TheBoxTicksItselfAgain) {
  quakes->selected = {0};
  Open([&](Dialog& dialog) {
    const auto caption = [&] { return ToUtf8(dialog.chkSumSelected.Caption()); };
    EXPECT_EQ(caption(), "Summarize on Selected Records Only (1 of 2 selected)");
    EXPECT_EQ(dialog.chkSumSelected.Value(), 1);
    dialog.chkSumSelected.UserClick();
    EXPECT_EQ(dialog.chkSumSelected.Value(), 0);
    dialog.UserActivate();
    EXPECT_EQ(dialog.chkSumSelected.Value(), 0);
    dialog.Form::UserClick();
    EXPECT_EQ(dialog.chkSumSelected.Value(), 1);
    quakes->selected = {0, 1};
    dialog.cmdSwitchSel.UserClick();
    EXPECT_EQ(caption(), "Summarize on Selected Records Only (0 of 2 selected)");
    EXPECT_EQ(dialog.chkSumSelected.Value(), 2);
    EXPECT_FALSE(dialog.chkSumSelected.Enabled());
  });
}

TEST_F(SummarizeDialog, OutputFolderIsTheFirstThatWillDo) {
  const std::vector<Text> candidates = {u"c:\\Users\\student\\Documents\\",
                                        u"c:\\Documents and Settings\\student\\My Documents\\",
                                        u"c:\\Documents and Settings\\student\\Documents\\",
                                        u"c:\\Documents and Settings\\My Documents\\",
                                        u"c:\\Documents and Settings\\Documents\\",
                                        u"C:\\Temp\\",
                                        u"D:\\Saved\\"};
  world.SetRegistry(u"CU\\Software\\ESRI\\ArcCatalog\\Settings\\LastSaveToLocation",
                    Value(u"D:\\Saved"));
  world.files.clear();
  for (const Text& folder : candidates) world.files[folder + u"summary.dbf"] = "";
  for (const Text& folder : candidates) {
    Open([&](Dialog& dialog) {
      EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), ToUtf8(folder + u"summary_2.dbf"));
    });
    world.files.erase(folder + u"summary.dbf");
  }
  Open([&](Dialog& dialog) {
    EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), "");
    EXPECT_FALSE(dialog.cmdOK.Enabled());
    dialog.txtOutput.UserEdit(u"x", 1, 0);
    EXPECT_TRUE(dialog.cmdOK.Enabled());
  });
}

TEST_F(SummarizeDialog, SaveDialogNeverOverwrites) {
  world.files[u"D:\\Out\\taken.dbf"] = "";
  world.browsed = {{}, {u"D:\\Out\\taken.dbf"}, {u"D:\\Out\\new.dbf"}};
  Open([&](Dialog& dialog) {
    dialog.cmdGetFile.UserClick();
    dialog.cmdGetFile.UserClick();
    EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), "D:\\Out\\taken_2.dbf");
    dialog.cmdGetFile.UserClick();
    EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), "D:\\Out\\new.dbf");
  });
  const auto fromThere = [](const std::string& entry) {
    return entry.find(" at D:\\Out\\ ") != std::string::npos;
  };
  EXPECT_EQ(std::ranges::count_if(world.log, fromThere), 1) << "it begins where the last one ended";
  EXPECT_EQ(Boxes(world),
            "[BrelmonOpenTable] Unable to overwrite the file 'taken.dbf'.  The new file will be "
            "saved to D:\\Out\\taken_2.dbf...\n");
}

TEST_F(SummarizeDialog, HelpIsModelessAndOutlivesTheDialog) {
  Open([](Dialog& dialog) {
    dialog.cmdHelp.UserClick();
    dialog.cmdHelp.UserClick();
  });
  ASSERT_EQ(world.frames.size(), 1u);
  EXPECT_EQ(ToUtf8(world.frames[0]->Caption()), "ArcGIS Summarize Help");
  EXPECT_TRUE(world.frames[0]->Visible());
}

TEST_F(SummarizeDialog, AnItemThatIsNotOfferedEndsInTheTrail) {
  quakes->valid = false;
  OpenOn(quakes, [](Dialog& dialog) { EXPECT_EQ(dialog.cbxLayer.ListIndex(), -1); });
  EXPECT_LT(Trails(world).find("Form_Load"), Trails(world).find("Fill_TreeView"));
  EXPECT_EQ(FailureIn(world), 9);
}

TEST_F(SummarizeDialog, TheWholeForm) {
  quakes->selected = {1};
  std::ifstream file(BRELMON_SOURCE_DIR "/tests/summarize/frm_Brelmon_Summarize.txt");
  std::stringstream expected;
  expected << file.rdbuf();
  OpenOn(quakes, [&](Dialog& dialog) { EXPECT_EQ(ToUtf8(dialog.Dump()), expected.str()); });
}

}  // namespace
}  // namespace brelmon::test
