// SPDX-License-Identifier: GPL-2.0-or-later
// The four editors of QuickLoad.txt, and what they leave in the file.
#include <gtest/gtest.h>

#include "quickload/QuickLoadFile.h"
#include "quickload/cmdQLAddLayer.h"
#include "quickload/cmdQLAddQuery.h"
#include "quickload/cmdQLAddSpatial.h"
#include "quickload/cmdQLDelete.h"
#include "tests/quickload/clicks.h"

namespace brelmon::test {
namespace {

const std::string kThree =
    "note\r\n<Query>\r\nBig\r\nPOP > 1\r\n<Layer>\r\nRain\r\nlayers\\rain.qlr\r\n"
    "<Bookmark>\r\nBig\r\n1,5\r\nx\r\n3\r\n4\r\n";

class EditorTest : public ::testing::Test {
 protected:
  void NameBookmark(const Text& name) {
    world.users[u"frm_InputSpatialBookmark"] = [name](Form& form) {
      auto& dialog = static_cast<frm_InputSpatialBookmark&>(form);
      dialog.txtName.UserType(name);
      form.UserEnter();
    };
  }
  void EnterQuery(const Text& name, const Text& query) {
    world.users[u"frm_InputQuery"] = [=](Form& form) {
      auto& dialog = static_cast<frm_InputQuery&>(form);
      dialog.txtName.UserType(name);
      EXPECT_FALSE(dialog.OKButton.Enabled());
      dialog.txtQuery.UserType(query);
      dialog.OKButton.UserClick();
    };
  }
  /// Selects rows of the deletion dialog and closes it by OK.
  void Delete(std::vector<std::int32_t> rows) {
    world.users[u"frm_QLDelete"] = [=, this](Form& form) {
      auto& dialog = static_cast<frm_QLDelete&>(form);
      listed = Rows(dialog.lbxReferences);
      for (const auto row : rows) dialog.lbxReferences.UserClick(row, true);
      dialog.OKButton.UserClick();
    };
    Click<cmdQLDelete>(world);
  }
  void AddLayerFile(const Text& path, const Text& name, bool valid = true) {
    const auto layer = New<FakeLayer>();
    layer->name = name;
    layer->valid = valid;
    world.layerFiles[path] = layer;
    browsed.push_back(path);
  }
  void AddLayers() {
    world.browsed.push_back(browsed);
    Click<cmdQLAddLayer>(world);
  }
  FakeWorld world;
  Reports reports{world};
  std::vector<Text> browsed;
  std::string listed;
};

TEST_F(EditorTest, WhatCanNotBeWrittenIsToldAndNotSaved) {
  world.files[kQuickLoadPath] = kThree;
  NameBookmark(u"\u0141\u00F3d\u017A");
  Click<cmdQLAddSpatial>(world);
  EXPECT_NE(Boxes(world).find("can't hold the letter \"\u0141\""), std::string::npos)
      << Boxes(world);
  EXPECT_EQ(*QuickLoadBytes(world), kThree);
  world.boxes.clear();
  world.diskFull = true;
  NameBookmark(u"Gulf");
  Click<cmdQLAddSpatial>(world);
  EXPECT_TRUE(Boxes(world).ends_with("\r\n61\r\nBrelmon host\r\nDisk full\n")) << Boxes(world);
  world.browsed.push_back(Browsed(std::vector<Text>()));  // OK with nothing chosen is no Cancel
  Click<cmdQLAddLayer>(world);
  EXPECT_EQ(world.boxes.size(), 1u);
}

TEST_F(EditorTest, ThreeCommandsOneFile) {
  world.answers = {box::kAnswerYes};
  world.map->extent->PutCoords(-98.25, 0.1 + 0.2, 1e15, 1.0 / 3);
  NameBookmark(u"Gulf");
  Click<cmdQLAddSpatial>(world);
  EXPECT_EQ(*QuickLoadBytes(world),
            "<Bookmark>\r\nGulf\r\n-98.25\r\n0.3\r\n1E+15\r\n0.333333333333333\r\n");
  EXPECT_EQ(ToUtf8(world.boxes.at(0).text),
            "No text file available at C:\\Module\\QuickLoad.txt.  "
            "Do you wish to create the file?");
  EXPECT_EQ(ToUtf8(world.boxes.at(1).text), "'Gulf' has been saved to the QuickLoad.txt file.");

  EnterQuery(u"Big", u"POP > 1\nOR A = 2");
  Click<cmdQLAddQuery>(world);
  AddLayerFile(u"c:\\module\\Layers\\Rain.qlr", u"Rainfall");
  AddLayers();
  EXPECT_TRUE(QuickLoadBytes(world)->ends_with(
      "<Query>\r\nBig\r\nPOP > 1\r\nOR A = 2\r\n<Layer>\r\nRainfall\r\nLayers\\Rain.qlr\r\n"));
  // The second line of the query is a note to the readers.
  const auto records = QuickLoadFile::Read(kQuickLoadPath);
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[1].Fields[1], u"POP > 1");
}

TEST_F(EditorTest, TheNameCancelIsTheCancelMark) {
  world.files[kQuickLoadPath] = "";
  NameBookmark(u"Cancel");
  Click<cmdQLAddSpatial>(world);
  EnterQuery(u"Cancel", u"A = 1");
  Click<cmdQLAddQuery>(world);
  EXPECT_EQ(*QuickLoadBytes(world), "");
  EXPECT_TRUE(world.boxes.empty());
  NameBookmark(u" ");  // a name of blanks passes
  Click<cmdQLAddSpatial>(world);
  EXPECT_TRUE(QuickLoadBytes(world)->starts_with("<Bookmark>\r\n \r\n0\r\n"));
}

TEST_F(EditorTest, InputDialogs) {
  frm_InputQuery query;
  query.txtName.UserType(u"n");
  frm_InputSpatialBookmark bookmark;
  EXPECT_EQ(ToUtf8(query.Dump()), R"dump(Form frm_InputQuery "Add BRELMON Query String:" 7020x3855
  Label lblInstructions 120,120 6780x225 "Please enter a name for this query string:"
  TextBox txtName 120,420 6780x315 focus for="lblInstructions" text="n" caret=1
  Label Label1 120,900 6780x225 "Please enter the query string:"
  TextBox txtQuery 120,1200 6780x1560 for="Label1" multi-line text="" caret=0
  Label Label2 120,2850 6780x225 "(Hint:  Recommend that you copy and paste a query that has been verified!)"
  CommandButton OKButton 4350,3360 1215x375 "OK" disabled default
  CommandButton CancelButton 5685,3360 1215x375 "Cancel" cancel
)dump");
  EXPECT_EQ(ToUtf8(bookmark.Dump()),
            R"dump(Form frm_InputSpatialBookmark "Create BRELMON Spatial Bookmark:" 5400x1515
  Label lblInstructions 120,120 5160x225 "Please enter a name for this spatial bookmark:"
  TextBox txtName 120,420 5160x315 for="lblInstructions" text="" caret=0
  CommandButton OKButton 2730,1020 1215x375 "OK" disabled default
  CommandButton CancelButton 4065,1020 1215x375 "Cancel" cancel
)dump");
}

TEST_F(EditorTest, LayersInsideOutsideAndGone) {
  world.files[kQuickLoadPath] = "";
  AddLayerFile(u"C:\\Module\\rain.qlr", u"Rain");
  AddLayerFile(u"C:\\rivers.qlr", u"Rivers");
  AddLayerFile(u"C:\\Module\\sub\\lakes.qlr", u"Lakes");
  AddLayerFile(u"C:\\gone.qlr", u"Gone", false);
  AddLayerFile(u"Z:\\copy\\C:\\MODULE\\x.qlr", u"Anywhere");  // a hit at any position is inside
  AddLayers();
  EXPECT_EQ(*QuickLoadBytes(world),
            "<Layer>\r\nRain\r\nrain.qlr\r\n<Layer>\r\nLakes\r\nsub\\lakes.qlr\r\n"
            "<Layer>\r\nAnywhere\r\n\\MODULE\\x.qlr\r\n");
  ASSERT_EQ(reports.shown.size(), 2u);
  const std::string rule(54, '-');
  const auto outside = [](const std::string& name, const std::string& path) {
    return "--> Layer '" + name +
           "' was not located within the current project directory. Layer reference locations are "
           "stored relative to the location of the MxD file, so that the tool can find the files "
           "based only on the location of the current project file.\r\n*** The current project is "
           "located in the following directory:\r\nC:\\Module\\\r\n*** Layer '" +
           name + "'is located at: \r\n" + path + "\r\n\r\n";
  };
  EXPECT_EQ(reports.shown[0],
            "[Error Report:] There were problems with the following layers.  They have not been "
            "added to the 'QuickLoad.txt' file.\r\n" +
                rule + "\r\n" + outside("Rivers", "C:\\rivers.qlr") +
                outside("Gone", "C:\\gone.qlr") +
                "--> Layer 'Gone' is invalid.  This most likely means that the actual data is not "
                "available, as might happen if only the 'Layer' file was copied and none of the "
                "referenced data files.\r\n\r\n");
  EXPECT_EQ(reports.shown[1],
            "[QuickLoad.txt Edit Report:] The following layers have been added to the "
            "'QuickLoad.txt' file:\r\n" +
                rule + "\r\n--> Rain\r\n--> Lakes\r\n--> Anywhere\r\n");
}

TEST_F(EditorTest, TheLayerAfterTheLastSlotFailsAndNothingIsWritten) {
  world.files[kQuickLoadPath] = "";
  AddLayerFile(u"C:\\Module\\rain.qlr", u"Rain");
  browsed.assign(1001, browsed.front());
  AddLayers();
  EXPECT_EQ(QuickLoadFile::Read(kQuickLoadPath).size(), 1001u);
  *QuickLoadBytes(world) = "";
  browsed.push_back(browsed.front());
  AddLayers();
  EXPECT_NE(ToUtf8(world.boxes.at(0).text).find("\r\n9\r\n"), std::string::npos);
  EXPECT_EQ(*QuickLoadBytes(world), "");
}

TEST_F(EditorTest, DeleteTheMiddleOne) {
  world.files[kQuickLoadPath] = kThree;
  Delete({1});
  EXPECT_EQ(listed, "Big  [Saved Query]\nRain  [Layer File]\nBig  [Spatial Bookmark]\n");
  EXPECT_EQ(*QuickLoadBytes(world),
            "<Query>\r\nBig\r\nPOP > 1\r\n<Bookmark>\r\nBig\r\n1,5\r\nx\r\n3\r\n4\r\n");
  EXPECT_EQ(reports.shown.at(0),
            "[QuickLoad Edit Report:] The following references were deleted from the QuickLoad.txt "
            "file:\r\n" +
                std::string(46, '-') + "\r\n  --> Rain  [Layer File]\r\n");
}

TEST_F(EditorTest, DeleteNoneRewritesWithoutNotesAndDeleteAllLeavesAnEmptyFile) {
  world.files[kQuickLoadPath] = kThree;
  Delete({});
  EXPECT_EQ(*QuickLoadBytes(world), kThree.substr(6));
  Delete({0, 1, 2});
  EXPECT_EQ(*QuickLoadBytes(world), "");
}

TEST_F(EditorTest, CancelledDeletionClosesTheFile) {
  world.files[kQuickLoadPath] = kThree;
  world.users[u"frm_QLDelete"] = [&](Form& form) {
    static_cast<frm_QLDelete&>(form).lbxReferences.UserClick(0);
    EXPECT_ANY_THROW(QuickLoadFile::Read(kQuickLoadPath));  // open while the dialog is up
    form.UserEscape();
  };
  Click<cmdQLDelete>(world);
  EXPECT_EQ(*QuickLoadBytes(world), kThree);
  EXPECT_EQ(QuickLoadFile::Read(kQuickLoadPath).size(), 3u);
}

TEST_F(EditorTest, DeletionDialog) {
  frm_QLDelete dialog;
  EXPECT_EQ(ToUtf8(dialog.Dump()),
            R"dump(Form frm_QLDelete "Delete References from QuickLoad File:" 6420x4815 sizable
  Label lblInstructions 120,120 6180x225 "Please select the references to delete from the QuickLoad.txt file:"
  ListBox lbxReferences 120,420 6180x3780 for="lblInstructions" extended rows=0
  CommandButton OKButton 120,4320 1215x375 "OK" default
  CommandButton CancelButton 1455,4320 1215x375 "Cancel" cancel
  PictureBox imgCornerBars 6195,4590 225x225 picture="Corner of a sizable window"
)dump");
}

}  // namespace
}  // namespace brelmon::test
