// SPDX-License-Identifier: GPL-2.0-or-later
// Published folders, read back by GDAL and as bytes.
#include "hosts/publish/publish.h"

#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include "tests/hosts/headless/module.h"

namespace brelmon::publish {
namespace {

namespace fs = std::filesystem;
using headless::HeadlessHost;
using nlohmann::json;

/// A page of few bytes, and a place to publish in.
class PublishTest : public testing::Test {
 protected:
  PublishTest() {
    for (const char* name : {"index.html", "page.js", "page.css", "brelmon.js", "brelmon.wasm"}) {
      work.Write(std::string("page/") + name, "<html>");
    }
  }
  Published Write(const HeadlessHost& host, bool single = false) const {
    return Publish({host.MapDocument(), Out(), work.Path("page"), single});
  }
  std::string Out(const std::string& name = {}) const {
    return work.Path("out" + (name.empty() ? "" : "/" + name));
  }
  json Module() const { return json::parse(BytesOf(Out("module.json"))); }
  /// Each file below a folder, and what is in it.
  static std::map<std::string, std::string> All(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      const bool file = entry.is_regular_file();
      files[entry.path().lexically_relative(folder)] = file ? BytesOf(entry.path()) : "";
    }
    return files;
  }

  headless::Module module;
  TempFolder work;
};

GDALDatasetUniquePtr Opened(const std::string& path, const std::string& encoding = {}) {
  const std::string option = "ENCODING=" + encoding;
  const char* options[] = {encoding.empty() ? nullptr : option.c_str(), nullptr};
  return GDALDatasetUniquePtr(
      GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR, nullptr, options, nullptr));
}

/// The same value in both, or none in either.
void ExpectSame(const OGRFeature& one, int field, const OGRFeature& other, int otherField) {
  ASSERT_EQ(one.IsFieldSetAndNotNull(field), other.IsFieldSetAndNotNull(otherField));
  if (!one.IsFieldSetAndNotNull(field)) return;
  if (one.GetFieldDefnRef(field)->GetType() == OFTReal) {
    EXPECT_EQ(one.GetFieldAsDouble(field), other.GetFieldAsDouble(otherField));
    return;
  }
  std::string text = const_cast<OGRFeature&>(one).GetFieldAsString(field);
  if (one.GetFieldDefnRef(field)->GetType() == OFTDate) text += " 00:00:00";
  EXPECT_EQ(text, const_cast<OGRFeature&>(other).GetFieldAsString(otherField));
}

TEST_F(PublishTest, EveryTableOfTheSampleHasTheRowsOfItsSource) {
  const std::string samples = BRELMON_SOURCE_DIR "/samples/";
  const HeadlessHost host(samples + "earth");
  Write(host);
  int tables = 0;
  const json document = Module();
  for (const json& source : document["sources"]) {
    if (!source.contains("file") || source["kind"] == "Delimited Text") continue;
    SCOPED_TRACE(source["file"].get<std::string>());
    std::string path = source["path"].get<std::string>().substr(3);
    std::replace(path.begin(), path.end(), '\\', '/');
    const auto from = Opened(samples + path, source.value("encoding", ""));
    const auto to = Opened(Out(source["file"]));
    ASSERT_TRUE(from && to);
    OGRLayer& rows = *from->GetLayerByName(source["table"].get<std::string>().c_str());
    OGRLayer& published = *to->GetLayer(0);
    ASSERT_EQ(published.GetLayerDefn()->GetFieldCount(), rows.GetLayerDefn()->GetFieldCount() + 1);
    std::int64_t count = 0;
    for (const auto& row : rows) {
      const OGRFeatureUniquePtr copy(published.GetNextFeature());
      ASSERT_TRUE(copy);
      ASSERT_EQ(copy->GetFieldAsInteger64(0), row->GetFID());
      for (int i = 0; i < row->GetFieldCount(); ++i) ExpectSame(*row, i, *copy, i + 1);
      const OGRGeometry* shape = row->GetGeometryRef();
      EXPECT_TRUE(shape == nullptr || shape->Equals(copy->GetGeometryRef()));
      ++count;
    }
    EXPECT_EQ(source["rows"], count);
    EXPECT_FALSE(OGRFeatureUniquePtr(published.GetNextFeature()));
    ++tables;
  }
  EXPECT_EQ(tables, 5);
}

TEST_F(PublishTest, ValuesAtTheEdgesKeepTheirKind) {
  headless::MakeGeoPackage(module.Path("sites.gpkg"));
  headless::MakeShapefile(module.Path("sites.shp"));
  GDALDatasetUniquePtr gpkgFile(
      GDALDataset::Open(module.Path("sites.gpkg").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  ASSERT_EQ(gpkgFile->GetLayer(0)->DeleteFeature(2), OGRERR_NONE);
  gpkgFile.reset();
  const HeadlessHost& host =
      module.Open({{"gpkg", "./sites.gpkg|layername=sites"}, {"shp", "./sites.shp"}}, "EPSG:3857");
  const Published done = Write(host);
  EXPECT_EQ(done.tables, 2);
  EXPECT_EQ(done.rows, 5);
  const json gpkg = Module()["sources"]["sites-1"], shp = Module()["sources"]["sites-2"];
  const auto file = Opened(Out(gpkg["file"]));
  OGRLayer& rows = *file->GetLayer(0);
  const OGRFeatureUniquePtr north(rows.GetNextFeature()), empty(rows.GetNextFeature());
  EXPECT_STREQ(north->GetFieldAsString(2), "5000000000");
  EXPECT_STREQ(north->GetFieldAsString(4), "2020/02/03 04:06:00") << "half a second rounds up";
  EXPECT_NEAR(north->GetGeometryRef()->toPoint()->getX(), 1113194.9079, 1e-3);
  EXPECT_EQ(empty->GetFieldAsInteger64(0), 3) << "the row behind the deleted one";
  for (int i = 1; i < 6; ++i) EXPECT_FALSE(empty->IsFieldSetAndNotNull(i)) << i;
  EXPECT_EQ(gpkg["sql"], "sqlite");
  EXPECT_EQ(gpkg["fields"][0], (json{{"name", "fid"}, {"type", 6}}));
  EXPECT_EQ(gpkg["fields"][5]["type"], 2);
  EXPECT_FALSE(gpkg.contains("encoding"));
  EXPECT_EQ(shp["fields"][2], (json{{"name", "N4_1"}, {"type", 3}, {"width", 4}, {"decimals", 1}}));
  EXPECT_EQ(shp["fields"][4]["dateOnly"], true);
  EXPECT_EQ(shp["encoding"], "ISO-8859-1");
  const Text characters = FromUtf8(shp["characters"].get<std::string>());
  ASSERT_EQ(characters.size(), 256u);
  EXPECT_EQ(characters[0xE4], u'\u00E4');
  EXPECT_EQ(Module()["units"], "metres");
}

TEST_F(PublishTest, AFolderIsReplacedWholeOrLeftAsItWas) {
  headless::MakeGeoPackage(module.Path("sites.gpkg"));
  const HeadlessHost& host = module.Open({{"sites", "./sites.gpkg|layername=sites"}});
  Write(host, true);
  const struct {
    const char* what;
    std::function<void()> before;
    bool published;
  } rows[] = {
      {"an earlier publication", [] {}, true},
      {"a file beside the page", [&] { work.Write("out/notes.txt", "mine"); }, false},
      {"a file among the media", [&] { work.Write("out/module/mine.png", "mine"); }, false},
      {"another's module.json",
       [&] {
         fs::remove_all(Out());
         work.Write("out/module.json", "{\"sources\": {}, \"shape\": 1}");
       },
       false},
      {"an empty folder",
       [&] {
         fs::remove_all(Out());
         fs::create_directory(Out());
       },
       true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    row.before();
    const auto before = All(work.Path());
    if (row.published) {
      EXPECT_NO_THROW(Write(host, true));
      EXPECT_EQ(All(Out()).count("module.json.js"), 1u);
    } else {
      EXPECT_THROW(Write(host, true), std::runtime_error);
      EXPECT_EQ(All(work.Path()), before);
    }
    fs::remove_all(Out("notes.txt"));
  }
  EXPECT_EQ(BytesOf(Out("index.html")), "<html data-single>");
  EXPECT_TRUE(BytesOf(Out("data/sites-1.fgb.js"))
                  .starts_with("brelmonFile(\"data/sites-1.fgb\", \"ZmdiA2ZnYg"));
  EXPECT_EQ(All(Out()).count("data/sites-1.fgb") + All(Out()).count("brelmon.wasm"), 0u);
}

TEST_F(PublishTest, WhereverItBreaksOffNothingHasChanged) {
  headless::MakeGeoPackage(module.Path("sites.gpkg"));
  const HeadlessHost& host = module.Open({{"sites", "./sites.gpkg|layername=sites"}});
  Write(host);
  const auto before = All(work.Path());
  int breaks = 0;
  for (bool done = false; !done; ++breaks) {
    int asked = 0;
    try {
      Publish(
          {host.MapDocument(), Out(), work.Path("page"), true, [&] { return asked++ == breaks; }});
      done = true;
    } catch (const std::runtime_error&) {
      ASSERT_EQ(All(work.Path()), before) << breaks;
    }
  }
  EXPECT_GT(breaks, 8);
  EXPECT_NE(All(work.Path()), before);
}

TEST_F(PublishTest, NothingFromOutsideTheModuleIsPublished) {
  work.Write("secret/far.csv", "NAME\nTELL-NOBODY\n");
  work.Write("secret/far.txt", "TELL-NOBODY");
  const std::string secret = work.Path("secret");
  fs::create_symlink(secret + "/far.csv", module.Path("linked.csv"));
  fs::create_symlink(secret, module.Path("links"));
  module.Write("union.vrt", "<OGRVRTDataSource><OGRVRTLayer name=\"far\"><SrcDataSource>" + secret +
                                "/far.csv</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
  module.Write("inside.txt", "read me");
  module.Write("media_list.txt",
               "Inside:inside.txt,5\r\nA link:links/far.txt,5\r\nUp:../../" + secret +
                   "/far.txt,5\r\nShortcut:home.url,3\r\nSite:https\xDF//example.org/,3\r\n");
  module.Write("home.url", "[InternetShortcut]\r\nURL=https://example.org/home\r\n");
  module.Write("QuickLoad.txt", "<Layer>\r\nFar\r\nlinks\\far.qlr\r\n");
  work.Write("secret/far.qlr", headless::ProjectXml(headless::TreeLayer("TELL-NOBODY"), {}));
  const HeadlessHost& host =
      module.Open({{"linked", "./linked.csv", "ogr", "No geometry"},
                   {"absolute", secret + "/far.csv", "ogr", "No geometry"},
                   {"union", "./union.vrt", "ogr", "No geometry"},
                   {"server", "dbname='x' password='TELL-NOBODY/y'", "postgres", "No geometry"}});
  const Published done = Write(host);
  EXPECT_EQ(done.tables, 0);
  for (const auto& [name, bytes] : All(Out())) {
    EXPECT_EQ(bytes.find("TELL-NOBODY"), std::string::npos) << name;
    EXPECT_EQ(bytes.find(name == "module/media_list.txt" ? "\x01" : secret), std::string::npos)
        << name;
  }
  EXPECT_EQ(Module()["media"], (json{"home.url", "inside.txt"}));
  const std::vector<std::string> told = {
      "linked: its data lie outside",     "absolute: its data lie outside",
      "union: its data can't be reached", "server: its data can't be reached",
      "links/far.txt: it lies outside",   "far.txt: it lies outside",
      "links\\far.qlr: it lies outside",  "Shortcut:https\u00DF//example.org/home,3",
  };
  std::string report;
  for (const std::string& line : done.report) report += line + "\n";
  for (const std::string& each : told) {
    EXPECT_NE(report.find(each), std::string::npos) << each << " in:\n" << report;
  }
}

}  // namespace
}  // namespace brelmon::publish
