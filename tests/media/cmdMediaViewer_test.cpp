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
        EXPECT_EQ(Rows(dialog, dialog.optImages), "A\nb\n");
        EXPECT_EQ(Rows(dialog, dialog.optPowerpoints), "z\ny\n");  // never sorted
        EXPECT_EQ(Rows(dialog, dialog.optWebsites), "w\n");
        EXPECT_EQ(Rows(dialog, dialog.optText), "g\n");
        EXPECT_EQ(Rows(dialog, dialog.optMovies), "m\n");
        EXPECT_EQ(Rows(dialog, dialog.optExcels), "x\n");
        EXPECT_EQ(Rows(dialog, dialog.optWords), "d\n");
        EXPECT_EQ(Rows(dialog, dialog.optPDFs), "p\n");
      });
  EXPECT_EQ(Trails(world), "");
}

TEST_F(MediaViewerTest, EmptyList) {
  Show("", [](Dialog& dialog) {
    EXPECT_EQ(dialog.lbxAll.ListCount(), 0);
    EXPECT_TRUE(dialog.optAll.Value());
    dialog.lbxAll.UserDoubleClick(-1);
    dialog.cmdOK.UserClick();  // disabled
  });
  EXPECT_TRUE(world.executed.empty() && world.boxes.empty());
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
  Show("i:gone.png,1\r\ng:gone.kml,0\r\np:gone.ppt,7\r\n", [](Dialog& dialog) {
    for (const std::int32_t row : {0, 1, 2}) Open(dialog, dialog.optAll, row);
    Open(dialog, dialog.optImages, 0);
    Open(dialog, dialog.optText, 0);
    Open(dialog, dialog.optPowerpoints, 0);
  });
  const char* const labels[] = {"Google Earth File", "Image",     "PowerPoint File",
                                "Image File",        "Text File", "PowerPoint Presentation"};
  ASSERT_EQ(world.boxes.size(), std::size(labels));
  for (std::size_t i = 0; i < std::size(labels); ++i) {
    EXPECT_TRUE(ToUtf8(world.boxes[i].text)
                    .starts_with("Unable to find the " + std::string(labels[i]) + " located at "))
        << ToUtf8(world.boxes[i].text);
  }
  EXPECT_EQ(ToUtf8(world.boxes[1].text),
            "Unable to find the Image located at C:\\Module\\gone.png!  Please make sure that the "
            "'media_list.txt' file references media file locations relative to ArcGIS Mxd file.");
  EXPECT_EQ(ToUtf8(world.boxes[1].title), "Unable To Find Media File:");
  EXPECT_EQ(world.boxes[1].style, box::kCritical);
}

TEST_F(MediaViewerTest, UnknownKindsTakeTheLabelBefore) {
  Show("first:a,9\r\nw:http\xDF//w,3\r\nx:gone/x,9\r\n", [](Dialog& dialog) {
    EXPECT_EQ(Rows(dialog, dialog.optAll), "first   ()\nw   (Website)\nx   (Website)\n");
    Open(dialog, dialog.optAll, 2);
  });
  // As a web address, although it is a path.
  EXPECT_EQ(Opened(), "[C:\\Module\\gone\\x] in []\n");
}

TEST_F(MediaViewerTest, EmptyAddressIsRefused) {
  Show("w:,3\r\n", [](Dialog& dialog) { Open(dialog, dialog.optAll, 0); });
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(ToUtf8(world.boxes[0].text), "Problem identifying filename!  Unable to continue...");
  EXPECT_EQ(ToUtf8(world.boxes[0].title), "Unable to identify filename of media file:");
}

TEST_F(MediaViewerTest, FailuresOfTheListLeaveTheDialogEmptyAndTheNumberTaken) {
  const struct {
    const char *list, *number;
  } rows[] = {{"b:b.png,1\r\na, b:c\r\n", "\r\n\t5\r\n"},
              {"b:b.png,1\r\nc:c.png,image\r\n", "\r\n\t13\r\n"},
              {"b:b.png,1\r\nB:c.png,1\r\n", "\r\n\t457\r\n"},
              {"b:a.png,9\r\nB:c.png,8\r\n", "\r\n\t457\r\n"}};
  for (const auto& row : rows) {
    FakeWorld fresh;
    const auto viewer = New<cmdMediaViewer>();
    viewer->OnCreate(fresh.application);
    fresh.files[kList] = row.list;
    std::string rowsShown;
    bool chosen = true;
    fresh.users[u"brelmon_MediaDialog"] = [&](Form& form) {
      auto& dialog = static_cast<Dialog&>(form);
      rowsShown = Rows(dialog);
      chosen = dialog.optAll.Value();
      form.UserClose();
    };
    viewer->OnClick();
    EXPECT_EQ(rowsShown, "") << row.list;
    EXPECT_FALSE(chosen) << row.list;
    EXPECT_NE(Trails(fresh).find(row.number), std::string::npos) << Trails(fresh);
    fresh.files[kList] = "";
    viewer->OnClick();
    EXPECT_NE(Trails(fresh).find("\r\n\t55\r\n"), std::string::npos) << Trails(fresh);
  }
}

TEST_F(MediaViewerTest, ListElsewhere) {
  world.browsed = {{}, {u"D:\\lists\\my.txt"}};
  command->OnClick();
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(ToUtf8(world.boxes[0].text),
            "Unable to find Brelmon 'Media_list.txt' file.  Bailing out...");
  EXPECT_EQ(ToUtf8(world.boxes[0].title), "Media Viewer Cancelled:");
  world.files[u"D:\\lists\\my.txt"] = "b:b.png,1\r\n";
  world.users[u"brelmon_MediaDialog"] = [](Form& form) {
    auto& dialog = static_cast<Dialog&>(form);
    Open(dialog, dialog.optAll, 0);
    form.UserEscape();
  };
  command->OnClick();
  EXPECT_EQ(Opened(), "[b.png] in [C:\\Module\\]\n");  // beside the document all the same
  EXPECT_EQ(world.log.back(), "Execute mode 1");
}

}  // namespace
}  // namespace brelmon::test
