// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/common/filesystem.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "frame/guard.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::host {
namespace {

class FileSystemTest : public testing::Test {
 protected:
  Text Path(const std::string& name) const { return paths.ToWindows(folder.Path(name)); }
  TempFolder folder;
  Paths paths;
  std::unique_ptr<IFileSystem> files = NewFileSystem();
};

TEST_F(FileSystemTest, TellsFilesFromFolders) {
  folder.Write("sub/a.txt", "x");
  EXPECT_EQ(files->Attributes(Path("sub/a.txt")), 0);
  EXPECT_EQ(files->Attributes(Path("SUB")), 16);
  EXPECT_EQ(files->Attributes(Path("sub/") + u"\\"), 16);
  for (const Text& path : {Path("sub/b.txt"), Path("sub/a.txt/c"), Path("sub/a.txt") + u"\\",
                           Text(u"Q:\\x"), Text(u"")}) {
    EXPECT_EQ(Guard::Ignore([&] { files->Attributes(path); }), 53) << ToUtf8(path);
  }
}

TEST_F(FileSystemTest, ReadsWritesAppends) {
  const Text path = Path("list.txt");
  files->Open(path, FileMode::Output)->Write("one\r\n");
  files->Open(path, FileMode::Append)->Write("two");
  EXPECT_EQ(BytesOf(folder.Path("list.txt")), "one\r\ntwo");
  const auto stream = files->Open(Path("LIST.TXT"), FileMode::Input);
  EXPECT_EQ(stream->Read(3), "one");
  EXPECT_EQ(stream->Read(100), "\r\ntwo");
  EXPECT_EQ(stream->Read(100), "");
  files->Open(path, FileMode::Output);
  EXPECT_EQ(BytesOf(folder.Path("list.txt")), "");
}

TEST_F(FileSystemTest, FailsWithThePlatformsNumbers) {
  folder.Write("a.txt", "x");
  EXPECT_EQ(Guard::Ignore([&] { files->Open(Path("none.txt"), FileMode::Input); }), 53);
  EXPECT_EQ(Guard::Ignore([&] { files->Open(Path("none/a.txt"), FileMode::Input); }), 76);
  EXPECT_EQ(Guard::Ignore([&] { files->Open(Path("none/a.txt"), FileMode::Output); }), 76);
  EXPECT_EQ(Guard::Ignore([&] { files->Open(Path(""), FileMode::Output); }), 75);
  EXPECT_EQ(Guard::Ignore([&] { files->Open(u"Q:\\a.txt", FileMode::Input); }), 76);
  EXPECT_EQ(Guard::Ignore([&] { files->Open(u"Z:\\dev\\full", FileMode::Output)->Write("x"); }),
            61);
  if (::geteuid() == 0) return;  // root may write anywhere
  std::filesystem::permissions(folder.Path("a.txt"), std::filesystem::perms::owner_read);
  EXPECT_EQ(Guard::Ignore([&] { files->Open(Path("a.txt"), FileMode::Output); }), 70);
}

TEST_F(FileSystemTest, LongPathsInTheirTrueCase) {
  folder.Write("Maps/Earth.qgs", "");
  Text buffer;
  const Text path = Path("maps/EARTH.QGS");
  EXPECT_EQ(files->GetLongPathName(path, buffer), static_cast<std::int32_t>(path.size()));
  EXPECT_EQ(buffer, Path("Maps/Earth.qgs"));
  EXPECT_EQ(files->GetLongPathName(Path("MAPS") + u"\\", buffer),
            static_cast<std::int32_t>(Path("Maps").size()) + 1);
  EXPECT_EQ(buffer, Path("Maps") + u"\\");
  EXPECT_EQ(files->GetLongPathName(Path("none"), buffer), 0);
}

}  // namespace
}  // namespace brelmon::host
