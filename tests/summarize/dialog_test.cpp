// SPDX-License-Identifier: GPL-2.0-or-later
// The Summarize dialog up to its OK.
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

TEST_F(SummarizeDialog, OffersItemsFieldsAndTheirStatistics) {
  OpenOn(quakes, [&](Dialog& dialog) {
    EXPECT_EQ(Rows(dialog.cbxLayer), "Quakes; Visits");
    EXPECT_EQ(Rows(dialog.cbxFieldName), "Network; Magnitude; When");
    EXPECT_EQ(ToUtf8(dialog.cbxFieldName.Text()), "Network");
    std::string tree;
    for (std::int32_t i = 1; i <= dialog.treeFields.NodeCount(); ++i) {
      const Node& node = dialog.treeFields.NodeAt(i);
      tree += ToUtf8(node.Key() + u" " + node.Tag + u" " + node.Caption()) + " " +
              std::to_string(node.Image()) + "\n";
    }
    EXPECT_EQ(tree,
              "key_3 Field Magnitude 4\n"
              "key_3_0 Stat Minimum 1\nkey_3_1 Stat Maximum 1\nkey_3_2 Stat Average 1\n"
              "key_3_3 Stat Sum 1\nkey_3_4 Stat Standard Deviation 1\nkey_3_5 Stat Variance 1\n"
              "key_4 Field When 6\nkey_4_0 Stat First 1\nkey_4_1 Stat Last 1\n");
    dialog.cbxFieldName.UserChoose(1);
    EXPECT_EQ(ToUtf8(dialog.treeFields.NodeAt(1).Key()), "key_2");
    EXPECT_EQ(dialog.treeFields.NodeAt(1).Image(), 3);
    dialog.cbxLayer.UserChoose(1);
    EXPECT_EQ(Rows(dialog.cbxFieldName), "WHO");
    EXPECT_EQ(dialog.treeFields.NodeCount(), 0);
  });
  EXPECT_EQ(Trails(world), "");
}

TEST_F(SummarizeDialog, TicksAreThePicturesAndGoWithTheField) {
  Open([](Dialog& dialog) {
    const auto image = [&](const char16_t* key) { return dialog.treeFields.NodeOf(key).Image(); };
    const auto click = [&](const char16_t* key) {
      dialog.treeFields.UserNodeClick(dialog.treeFields.NodeOf(key));
    };
    click(u"key_3_3");
    EXPECT_EQ(image(u"key_3_3"), 2);
    EXPECT_EQ(dialog.treeFields.NodeOf(u"key_3_3").SelectedImage(), 2);
    click(u"key_3");
    EXPECT_EQ(image(u"key_3"), 4);
    click(u"key_3_3");
    EXPECT_EQ(image(u"key_3_3"), 1);
    click(u"key_3_3");
    dialog.cbxFieldName.UserChoose(0);
    EXPECT_EQ(image(u"key_3_3"), 1);
  });
}

TEST_F(SummarizeDialog, FillingShowsItsProgress) {
  Open([&](Dialog& dialog) {
    world.log.clear();
    dialog.cbxFieldName.UserChoose(1);
  });
  const Log expected = {"Pointer 11", "Bar [Examining fields in Quakes...] 1..6 by 1 one panel",
                        "Bar hidden after 6", "Pointer 0"};
  EXPECT_EQ(world.log, expected);
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
  const Text candidates[] = {u"c:\\Users\\student\\Documents\\",
                             u"c:\\Documents and Settings\\student\\My Documents\\",
                             u"c:\\Documents and Settings\\student\\Documents\\",
                             u"c:\\Documents and Settings\\My Documents\\",
                             u"c:\\Documents and Settings\\Documents\\",
                             u"C:\\Temp\\",
                             u"D:\\Saved\\"};
  world.SetRegistry(u"CU\\Software\\ESRI\\ArcCatalog\\Settings\\LastSaveToLocation",
                    Value(u"D:\\Saved"));
  for (std::size_t first = 0; first <= std::size(candidates); ++first) {
    world.files.clear();
    for (std::size_t i = first; i < std::size(candidates); ++i) {
      world.files[candidates[i] + u"summary.dbf"] = "";
    }
    const Text expected =
        first < std::size(candidates) ? candidates[first] + u"summary_2.dbf" : Text();
    Open([&](Dialog& dialog) {
      EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), ToUtf8(expected));
      EXPECT_EQ(dialog.cmdOK.Enabled(), !expected.empty());
      dialog.txtOutput.UserEdit(u"x", 1, 0);
      EXPECT_TRUE(dialog.cmdOK.Enabled());
      dialog.txtOutput.UserEdit(u"", 0, 0);
      EXPECT_FALSE(dialog.cmdOK.Enabled());
    });
  }
}

TEST_F(SummarizeDialog, SaveDialogNeverOverwrites) {
  world.files[u"D:\\Out\\taken.dbf"] = "";
  world.browsed = {{}, {u"D:\\Out\\taken.dbf"}, {u"D:\\Out\\new.dbf"}};
  Open([&](Dialog& dialog) {
    const Text before = dialog.txtOutput.Text();
    dialog.cmdGetFile.UserClick();
    EXPECT_EQ(dialog.txtOutput.Text(), before);
    dialog.cmdGetFile.UserClick();
    EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), "D:\\Out\\taken_2.dbf");
    dialog.cmdGetFile.UserClick();
    EXPECT_EQ(ToUtf8(dialog.txtOutput.Text()), "D:\\Out\\new.dbf");
  });
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(ToUtf8(world.boxes[0].text),
            "Unable to overwrite the file 'taken.dbf'.  The new file will be saved to "
            "D:\\Out\\taken_2.dbf...");
  EXPECT_NE(std::find(world.log.begin(), world.log.end(),
                      "Save [Please specify where to save your Summary table:] [] at "
                      "c:\\Users\\student\\Documents\\ filter 3 name summary.dbf"),
            world.log.end());
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
  OpenOn(quakes, [](Dialog& dialog) {
    EXPECT_EQ(dialog.cbxLayer.ListIndex(), -1);
    EXPECT_EQ(dialog.treeFields.NodeCount(), 0);
  });
  const std::string trail = Trails(world);
  EXPECT_LT(trail.find("Form_Load"), trail.find("Fill_TreeView"));
  EXPECT_NE(trail.find("\t9\r\n"), std::string::npos);
}

TEST_F(SummarizeDialog, ALayerWithoutFieldsToSummarizeByIsTold) {
  visits->fields[1].visible = false;
  Open([](Dialog& dialog) { dialog.cbxLayer.UserChoose(1); });
  EXPECT_NE(Trails(world).find("cbxLayer_Click"), std::string::npos);
}

TEST_F(SummarizeDialog, StretchesWithItsForm) {
  Open([](Dialog& dialog) {
    const Twips tree = dialog.treeFields.Width(), buttons = dialog.cmdOK.Top();
    const Twips browse = dialog.cmdGetFile.Left(), left = dialog.cmdOK.Left();
    dialog.Resize(dialog.Width() + 600, dialog.Height() + 300);
    EXPECT_EQ(dialog.treeFields.Width(), tree + 600);
    EXPECT_EQ(dialog.cmdOK.Top(), buttons + 300);
    EXPECT_EQ(dialog.cmdOK.Left(), left);
    EXPECT_EQ(dialog.cmdGetFile.Left(), browse + 600);
  });
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
