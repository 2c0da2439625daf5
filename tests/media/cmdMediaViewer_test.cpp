// SPDX-License-Identifier: GPL-2.0-or-later
// The media viewer from the click to the opened item, with all failures of its list.
#include "media/cmdMediaViewer.h"

#include <gtest/gtest.h>

#include "media/brelmon_mediadialog.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {
namespace {

const Text kList = u"C:\\Module\\media_list.txt";

class MediaViewerTest : public ::testing::Test {
 protected:
  using Dialog = brelmon_MediaDialog;
  explicit MediaViewerTest() : command(New<cmdMediaViewer>()) {
    command->OnCreate(world.application);
    for (const char16_t* name : {u"b.png", u"a.png", u"z.odp", u"y.odp", u"links\\s.url"}) {
      world.files[Text(u"C:\\Module\\") + name] = "x";
    }
  }
  /// One click; the dialog's user does `use` and cancels.
  void Show(const std::string& list, const std::function<void(Dialog&)>& use) {
    world.files[kList] = list;
    world.users[u"brelmon_MediaDialog"] = [&](Form& form) {
      auto& dialog = static_cast<Dialog&>(form);
      use(dialog);
      dialog.cmdCancel.UserClick();
    };
    command->OnClick();
  }
  static std::string Rows(Dialog& dialog) {
    std::string rows;
    for (std::int32_t row = 0; row < dialog.lbxAll.ListCount(); ++row) {
      rows += ToUtf8(dialog.lbxAll.List(row)) + "\n";
    }
    return rows;
  }
  /// The rows under one option.
  static std::string Rows(Dialog& dialog, OptionButton& option) {
    option.UserClick();
    return Rows(dialog);
  }
  static void Open(Dialog& dialog, OptionButton& option, std::int32_t row) {
    option.UserClick();
    dialog.lbxAll.UserClick(row);
    dialog.cmdOK.UserClick();
  }
  std::string Opened() {
    std::string opened;
    for (const auto& each : world.executed) {
      opened += "[" + ToUtf8(each.file) + "] in [" + ToUtf8(each.directory) + "]\n";
    }
    return opened;
  }

  FakeWorld world;
  Ref<cmdMediaViewer> command;
};

TEST_F(MediaViewerTest, WholeDialogAndNineLists) {
  Show(
      "b:b.png,1\r\nz:z.odp,7\r\nA:a.png,1\r\na note\r\ny:y.odp,7\r\nw:http\xDF//w,3\r\n"
      "g:g.kml,0\r\nm:m.avi,2\r\nx:x.xls,4\r\nd:d.doc,5\r\np:p.pdf,6\r\n",
      [](Dialog& dialog) {
        EXPECT_EQ(ToUtf8(dialog.Dump()),
                  R"dump(Form brelmon_MediaDialog "Media Viewer" 6420x5415 sizable visible
  ListBox lbxAll 120,120 6180x3120 focus tip="Media of the chosen kind" rows=10: "A   (Image)", "b   (Image)", "d   (Word File)", "g   (Google Earth File)", "m   (Movie)", "p   (PDF File)", "w   (Website)", "x   (Excel File)", "y   (PowerPoint File)", "z   (PowerPoint File)"
  Frame cpOptions 120,3360 6180x1440 tip="Kinds of media"
    OptionButton optAll 180,240 1950x255 "All Media" on
    OptionButton optMovies 180,615 1950x255 "Movies" off
    OptionButton optImages 180,990 1950x255 "Images" off
    OptionButton optWebsites 2190,240 1950x255 "Websites" off
    OptionButton optText 2190,615 1950x255 "Google Earth Sites" off
    OptionButton optExcels 2190,990 1950x255 "Excel Files" off
    OptionButton optWords 4200,240 1950x255 "Word Files" off
    OptionButton optPDFs 4200,615 1950x255 "PDF Files" off
    OptionButton optPowerpoints 4200,990 1950x255 "PowerPoint" off
  CommandButton cmdOK 120,4920 1215x375 "OK" disabled default
  CommandButton cmdCancel 1455,4920 1215x375 "Cancel" cancel
  PictureBox imgCornerBars 6195,5190 225x225 picture="Corner of a sizable window"
)dump");
        std::string lists;
        for (OptionButton* option :
             {&dialog.optImages, &dialog.optPowerpoints, &dialog.optWebsites, &dialog.optText,
              &dialog.optMovies, &dialog.optExcels, &dialog.optWords, &dialog.optPDFs}) {
          lists += Rows(dialog, *option) + ";";
        }
        EXPECT_EQ(lists, "A\nb\n;z\ny\n;w\n;g\n;m\n;x\n;d\n;p\n;");  // slides are never sorted
      });
  EXPECT_EQ(Trails(world), "");
}

TEST_F(MediaViewerTest, OpensSeveralInARow) {
  Show("b:b.png,1\r\nsite:http\xDF//s/p?a=1&b=2,3\r\nlink:links/s.url,3\r\n", [](Dialog& dialog) {
    Open(dialog, dialog.optImages, 0);
    Open(dialog, dialog.optWebsites, 1);
    dialog.lbxAll.UserDoubleClick(0);
    dialog.optImages.UserClick();
    EXPECT_FALSE(dialog.cmdOK.Enabled());  // until a row is clicked
    dialog.lbxAll.UserDoubleClick(-1);
  });
  EXPECT_EQ(Opened(),
            "[b.png] in [C:\\Module\\]\n[http://s/p?a=1&b=2] in []\n"
            "[s.url] in [C:\\Module\\links\\]\n");
  EXPECT_NE(std::find(world.log.begin(), world.log.end(), "Execute mode 1"), world.log.end());
}

TEST_F(MediaViewerTest, MissingFilesAreNamedByTheListTheyWereChosenFrom) {
  Show("i:gone.png,1\r\np:gone.ppt,7\r\nw:,3\r\n", [](Dialog& dialog) {
    for (const std::int32_t row : {0, 1, 2}) Open(dialog, dialog.optAll, row);
    Open(dialog, dialog.optImages, 0);
    Open(dialog, dialog.optPowerpoints, 0);
  });
  const std::string tail =
      "!  Please make sure that the 'media_list.txt' file references media file locations relative "
      "to ArcGIS Mxd file.";
  const std::string missing = "[Unable To Find Media File:] Unable to find the ";
  const std::string image = " located at C:\\Module\\gone.png" + tail;
  const std::string slides = " located at C:\\Module\\gone.ppt" + tail;
  EXPECT_EQ(Boxes(world), missing + "Image" + image + "\n" + missing + "PowerPoint File" + slides +
                              "\n[Unable to identify filename of media file:] Problem identifying "
                              "filename!  Unable to continue...\n" +
                              missing + "Image File" + image + "\n" + missing +
                              "PowerPoint Presentation" + slides + "\n");
}

TEST_F(MediaViewerTest, UnknownKindsTakeTheLabelBefore) {
  Show("first:a,9\r\nw:http\xDF//w,3\r\nx:gone/x,9\r\n", [](Dialog& dialog) {
    EXPECT_EQ(Rows(dialog, dialog.optAll), "first   ()\nw   (Website)\nx   (Website)\n");
    Open(dialog, dialog.optAll, 2);
  });
  // As a web address, although it is a path.
  EXPECT_EQ(Opened(), "[C:\\Module\\gone\\x] in []\n");
}

TEST_F(MediaViewerTest, ListElsewhere) {
  world.browsed = {{}, {u"D:\\lists\\my.txt"}};
  command->OnClick();
  EXPECT_EQ(Boxes(world),
            "[Media Viewer Cancelled:] Unable to find Brelmon 'Media_list.txt' file.  Bailing "
            "out...\n");
  world.files[u"D:\\lists\\my.txt"] = "b:b.png,1\r\n";
  world.users[u"brelmon_MediaDialog"] = [](Form& form) {
    auto& dialog = static_cast<Dialog&>(form);
    Open(dialog, dialog.optAll, 0);
    form.UserEscape();
  };
  command->OnClick();
  EXPECT_EQ(Opened(), "[b.png] in [C:\\Module\\]\n");  // beside the document all the same
}

}  // namespace
}  // namespace brelmon::test
