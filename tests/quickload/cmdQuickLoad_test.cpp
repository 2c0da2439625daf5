// SPDX-License-Identifier: GPL-2.0-or-later
// The QuickLoad command and its dialog: four jumps, the refusals, what lives between clicks.
#include "quickload/cmdQuickLoad.h"

#include <gtest/gtest.h>

#include "tests/quickload/clicks.h"

namespace brelmon::test {
namespace {

const char kModule[] =
    "<Layer>\r\nRain\r\nlayers\\rain.qlr\r\n<Query>\r\nBig\r\nPOP > 1\r\n"
    "<Bookmark>\r\nGulf\r\n-98.25\r\n17.5\r\n-80.125\r\n31\r\n";

class QuickLoadTest : public ::testing::Test {
 protected:
  QuickLoadTest() {
    world.files[kQuickLoadPath] = kModule;
    command = Create<cmdQuickLoad>(world);
  }
  using Dialog = brelmon_QuickJumpDialog;
  /// Clicks; the dialog's user does `use` and closes by OK.
  void Choose(const std::function<void(Dialog&)>& use) {
    world.users[u"brelmon_QuickJumpDialog"] = [use](Form& form) {
      auto& dialog = static_cast<Dialog&>(form);
      use(dialog);
      dialog.cmdOK.UserClick();
    };
    command->OnClick();
  }
  void Choose(OptionButton Dialog::*option, std::int32_t row) {
    Choose([=](Dialog& dialog) {
      (dialog.*option).UserClick();
      dialog.lbxList.UserClick(row);
    });
  }
  std::string BoxText() { return world.boxes.empty() ? "" : ToUtf8(world.boxes.back().text); }

  FakeWorld world;
  Ref<cmdQuickLoad> command;
};

TEST_F(QuickLoadTest, WholeDialog) {
  std::string dump, extents;
  Choose([&](Dialog& dialog) {
    dump = ToUtf8(dialog.Dump());
    dialog.optExtents.UserClick();
    extents = Rows(dialog.lbxList);
    dialog.lbxList.UserClick(0);
    EXPECT_TRUE(dialog.cmdOK.Enabled());
  });
  EXPECT_EQ(extents, "Gulf\n");
  EXPECT_EQ(dump, R"dump(Form brelmon_QuickJumpDialog "QuickLoad" 4620x4815 sizable visible
  Frame cpSavedTypes 120,120 4380x1095 " QuickLoad Options "
    OptionButton optViews 180,300 1860x255 "Data Frames" focus on
    OptionButton optExtents 180,660 1860x255 "Spatial Bookmarks" off
    OptionButton optLayers 2400,300 1860x255 "Layers" off
    OptionButton optQueries 2400,660 1860x255 "Queries" off
  ListBox lbxList 120,1335 4380x2865 tip="Shortcuts of the chosen kind" rows=1: "Layers"
  CommandButton cmdOK 120,4320 1215x375 "OK" disabled default
  CommandButton cmdCancel 1455,4320 1215x375 "Cancel" cancel
  PictureBox imgCornerBars 4395,4590 225x225 picture="Corner of a sizable window"
)dump");
}

TEST_F(QuickLoadTest, MissingFileIsRefused) {
  world.files.clear();
  command->OnClick();
  EXPECT_EQ(
      Boxes(world),
      "[QuickLoad Editor Cancelled:] Unable to find Brelmon 'QuickLoad.txt' file.  File should "
      "be located in the same directory as the ArcGIS MxD file.\r\n\r\nBailing out...\n");
}

TEST_F(QuickLoadTest, DataFrame) {
  const auto other = world.document->AddMap(u"Oceans");
  other->fullExtent->PutCoords(1, 2, 3, 4);
  world.document->tab = 2;
  Choose(&Dialog::optViews, 1);
  EXPECT_EQ(world.document->tab, 0u);
  EXPECT_TRUE(other->expanded);
  EXPECT_FALSE(world.map->expanded);
  EXPECT_EQ(world.document->focus, 1u);
  EXPECT_EQ(other->extent->bounds[3], 4);
}

TEST_F(QuickLoadTest, Layer) {
  world.files[u"C:\\Module\\layers\\rain.qlr"] = "x";
  const auto layer = New<FakeLayer>();
  world.layerFiles[u"C:\\Module\\layers\\rain.qlr"] = layer;
  Choose(&Dialog::optLayers, 0);
  Choose(&Dialog::optLayers, 0);
  EXPECT_EQ(world.map->layers.size(), 2u);  // added twice: nobody looks
  layer->valid = false;
  Choose(&Dialog::optLayers, 0);
  EXPECT_EQ(BoxText(),
            "The layer named 'Rain' is invalid. Possibly the data referenced by the layer file is "
            "missing, or the file itself is corrupt.\r\n\r\nBailing out...");
  world.files.erase(u"C:\\Module\\layers\\rain.qlr");
  Choose(&Dialog::optLayers, 0);
  EXPECT_EQ(BoxText(),
            "No layer file was found at the following location: \r\n\r\n --> "
            "C:\\Module\\layers\\rain.qlr\r\n\r\nBailing out...");
  EXPECT_EQ(world.map->layers.size(), 2u);
}

TEST_F(QuickLoadTest, StaleRowsUntilAnOptionIsChosenAnew) {
  Reports reports(world);
  Choose(&Dialog::optQueries, 0);
  *QuickLoadBytes(world) = "<Query>\r\nNew\r\nA = 2\r\n<Query>\r\nBig\r\nPOP > 1\r\n";
  std::string stale, fresh;
  Choose([&](Dialog& dialog) { stale = Rows(dialog.lbxList); });  // OK at once
  EXPECT_EQ(stale, "Big\n");
  EXPECT_EQ(reports.shown.back(), "[Query = New] A = 2");  // by position in the new lists
  Choose([&](Dialog& dialog) {
    dialog.optViews.UserClick();
    dialog.optQueries.UserClick();
    fresh = Rows(dialog.lbxList);
    dialog.lbxList.UserClick(1);
  });
  EXPECT_EQ(fresh, "New\nBig\n");
  *QuickLoadBytes(world) = "";
  Choose([](Dialog&) {});  // the row lies beyond the new lists
  EXPECT_NE(BoxText().find("\r\n9\r\n"), std::string::npos) << BoxText();
}

TEST_F(QuickLoadTest, DoubleClickBelowTheRowsFails) {
  world.users[u"brelmon_QuickJumpDialog"] = [](Form& form) {
    auto& dialog = static_cast<Dialog&>(form);
    dialog.optQueries.UserClick();
    dialog.lbxList.UserDoubleClick(-1);
  };
  command->OnClick();
  EXPECT_NE(BoxText().find("\r\n9\r\n"), std::string::npos) << BoxText();
}

}  // namespace
}  // namespace brelmon::test
