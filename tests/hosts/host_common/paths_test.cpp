// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/common/paths.h"

#include <gtest/gtest.h>

#include "tests/hosts/tempfolder.h"

namespace brelmon::host {
namespace {

TEST(Paths, PresentTheRootAsDriveZ) {
  const Paths paths;
  EXPECT_EQ(paths.ToWindows("/srv/modules/map.qgs"), u"Z:\\srv\\modules\\map.qgs");
  EXPECT_EQ(paths.ToWindows("/srv/Wei\xC3\x9F"), u"Z:\\srv\\Wei\u00DF");
  EXPECT_EQ(paths.ToSystem(u"Z:\\"), "/");
  EXPECT_EQ(paths.ToSystem(u"z:"), "/");
}

TEST(Paths, MapBackBothDrives) {
  const TempFolder folder;
  folder.Write("home/docs/a.txt", "");
  const Paths paths({folder.Path("home"), u"Ann"});
  const std::string file = folder.Path("home/docs/a.txt");
  EXPECT_EQ(paths.ToSystem(paths.ToWindows(file)), file);
  struct Row {
    const char16_t* path;
    bool known;
  };
  for (const Row& row :
       {Row{u"C:\\Users\\Ann\\docs\\a.txt", true}, Row{u"c:/users/ann/docs/a.txt", true},
        Row{u"c:\\USERS\\ANN\\DOCS\\.\\x\\..\\A.TXT", true}, Row{u"C:\\Users\\Anna\\a.txt", false},
        Row{u"C:\\Windows\\a.txt", false}, Row{u"D:\\a.txt", false}, Row{u"docs\\a.txt", false},
        Row{u"\\\\server\\share\\a.txt", false}, Row{u"z:a.txt", false}, Row{u"", false}}) {
    const auto system = paths.ToSystem(row.path);
    EXPECT_EQ(system.has_value(), row.known) << ToUtf8(row.path);
    if (row.known) {
      EXPECT_EQ(*system, file) << ToUtf8(row.path);
    }
  }
  // Parents above the home stay inside of it.
  EXPECT_EQ(paths.ToSystem(u"C:\\Users\\Ann\\..\\..\\docs\\a.txt"), file);
}

TEST(Paths, FindNamesRegardlessOfCaseButPreferTheCaseGiven) {
  const TempFolder folder;
  folder.Write("Maps/Data.SHP", "");
  folder.Write("Maps/data.shp", "");
  folder.Write("\xC3\x84tna/x", "");
  EXPECT_EQ(TrueCase(folder.Path("MAPS/data.shp")), folder.Path("Maps/data.shp"));
  EXPECT_EQ(TrueCase(folder.Path("maps/Data.SHP")), folder.Path("Maps/Data.SHP"));
  EXPECT_EQ(TrueCase(folder.Path("maps/DATA.shp")), folder.Path("Maps/Data.SHP"));
  EXPECT_EQ(TrueCase(folder.Path("\xC3\xA4TNA/X")), folder.Path("\xC3\x84tna/x"));
  // What isn't there stays as it was written, behind what is.
  EXPECT_EQ(TrueCase(folder.Path("maps/New Folder/Out.dbf")),
            folder.Path("Maps/New Folder/Out.dbf"));
}

}  // namespace
}  // namespace brelmon::host
