// SPDX-License-Identifier: GPL-2.0-or-later
// A shapefile with rows that are marked as deleted, in a folder and in an archive: every way to
// count comes to the same.
#include <cpl_conv.h>
#include <cpl_vsi.h>
#include <gtest/gtest.h>

#include "hosts/data/vectorsource.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::data {
namespace {

constexpr int kRows = 1707, kDeleted[] = {0, 5, 6, 1706};

/// The sample's quakes with some rows deleted, in the folder and in an archive there.
void Make(const TempFolder& folder) {
  const std::string archive = "/vsizip/" + folder.Path("quakes.zip");
  VSILFILE* keptOpen = VSIFOpenL(archive.c_str(), "wb");
  for (const char* ending : {".shp", ".shx", ".dbf", ".prj"}) {
    const std::string name = std::string("quakes") + ending;
    std::string bytes = BytesOf(std::string(BRELMON_SOURCE_DIR "/samples/earth/data/") + name);
    if (name == "quakes.dbf") {
      const auto at = [&](std::size_t i) {
        return static_cast<unsigned char>(bytes[i]) +
               256u * static_cast<unsigned char>(bytes[i + 1]);
      };
      for (const unsigned row : kDeleted) bytes[at(8) + row * at(10)] = '*';
    }
    folder.Write(name, bytes);
    VSILFILE* inside = VSIFOpenL((archive + "/" + name).c_str(), "wb");
    VSIFWriteL(bytes.data(), 1, bytes.size(), inside);
    VSIFCloseL(inside);
  }
  VSIFCloseL(keptOpen);
}

TEST(DeletedRows, AreCountedByNobody) {
  GDALAllRegister();
  const TempFolder folder;
  Make(folder);
  constexpr std::int64_t due = kRows - std::int64_t{std::size(kDeleted)};
  columns::RowIds strong;
  for (const std::string& path :
       {folder.Path("quakes.shp"), "/vsizip/" + folder.Path("quakes.zip/quakes.shp"),
        folder.Path("quakes.dbf"), "/vsizip/" + folder.Path("quakes.zip/quakes.dbf")}) {
    SCOPED_TRACE(path);
    const auto source = std::make_shared<VectorSource>(AddressOf({"ogr", path, {}, {}}, "/"));
    ASSERT_TRUE(source->Valid()) << source->Problem();
    EXPECT_EQ(source->TotalRows(), due);
    EXPECT_EQ(source->CountRows(u"1 = 1"), due);
    EXPECT_EQ(static_cast<std::int64_t>(source->IdsOfRows({}, false).size()), due);
    std::int64_t read = 0;
    const auto rows = source->Read({{0}, {}, {}});
    while (const auto batch = rows->Next()) read += static_cast<std::int64_t>(batch->Live.size());
    EXPECT_EQ(read, due);
    const columns::RowIds found = source->IdsOfRows(u"MAG > 5", false);
    EXPECT_EQ(source->CountRows(u"MAG > 5"), static_cast<std::int64_t>(found.size()));
    if (strong.empty()) strong = found;
    EXPECT_EQ(found, strong);
  }
}

}  // namespace
}  // namespace brelmon::data
