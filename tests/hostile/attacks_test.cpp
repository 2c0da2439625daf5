// SPDX-License-Identifier: GPL-2.0-or-later
// Modules that reach for a library, a server or a file of somebody else's: nothing of it happens.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "tests/hostile/hostilemodule.h"
#include "tests/hostile/supervisor.h"

namespace brelmon::hostile {
namespace {

constexpr const char* kActions = "contents\nabout\ncheck\nvalues it MAG\n";
const std::string kServer = "127.0.0.1:9";

std::string Together(const std::vector<std::string>& deeds) {
  std::string text;
  for (const std::string& deed : deeds) text += deed + "\n";
  return text;
}

/// What the supervision can see, it sees.
TEST(Supervision, SeesSocketsProgramsFilesAndCode) {
  const HostileModule module;
  const Watched watched = Supervise(
      {"/bin/bash", "-c",
       "echo > within; echo > ../outside; exec 3<>/dev/tcp/127.0.0.1/9; LD_PRELOAD=./data/probe.so "
       "/bin/true"},
      module.Path());
  std::filesystem::remove(module.Path("../outside"));
  const std::string due = "write " + std::filesystem::temp_directory_path().string() +
                          "/outside\n" + "socket 2\nconnect 2\nexec /bin/true\nload " +
                          module.Path("data/probe.so") + "\n";
  EXPECT_EQ(Together(watched.deeds), due) << watched.err;
}

TEST(Supervision, LetsAnHonestModulePass) {
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp|layername=quakes");
  const Watched watched = Supervise({BRELMON_PROGRAM, module.Path()}, module.Path(), kActions);
  EXPECT_EQ(Together(watched.deeds), "");
  EXPECT_NE(watched.out.find("it    valid  1707"), std::string::npos) << watched.out << watched.err;
}

struct Attack {
  const char* name;
  const char* provider;
  std::string source;
  const char* reason;  // of the layer that isn't opened; null for one that is
  std::function<void(const HostileModule&)> prepare = {};
  std::string subset = {}, crs = "EPSG:4326";
};

std::function<void(const HostileModule&)> File(const char* name, const std::string& bytes) {
  return [=](const HostileModule& module) { module.Write(name, bytes); };
}

std::function<void(const HostileModule&)> Sql(const char* name, const std::string& sql) {
  return [=](const HostileModule& module) { module.Database(name, sql); };
}

std::function<void(const HostileModule&)> Pipe(const char* name) {
  return [=](const HostileModule& module) {
    std::filesystem::remove(module.Path(name));
    ASSERT_EQ(::mkfifo(module.Path(name).c_str(), 0600), 0);
  };
}

std::string Vrt(const std::string& source) {
  return "<OGRVRTDataSource><OGRVRTLayer name=\"it\"><SrcDataSource relativeToVRT=\"0\">" + source +
         "</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>";
}

std::string VirtualTable(const std::string& module) {
  return "CREATE TABLE t (n INTEGER); PRAGMA writable_schema=ON; INSERT INTO sqlite_master VALUES "
         "('table', 'it', 'it', 0, 'CREATE VIRTUAL TABLE \"it\" USING " +
         module + "');";
}

constexpr const char* kFormat = "its format is none that is read";
constexpr const char* kNoFile = "it is no file of this computer";
constexpr const char* kAllow = "is not called unless you allow it: --server 127.0.0.1";
constexpr const char* kNotThere = "there is no such file";
constexpr const char* kOption = "its open option PRELUDE_STATEMENTS is not allowed";
constexpr const char* kTable = "its table \"it\" stands for something outside of it";
constexpr const char* kPipe = "is a pipe or a device, no file";

const std::string kPoint =
    R"({"type":"Feature","geometry":{"type":"Point","coordinates":[1,2]},"properties":{"n":1}})";

std::vector<Attack> Attacks() {
  const std::string web = "http://" + kServer + "/a.geojson";
  const std::string gml =
      "<wfs:FeatureCollection xmlns:wfs='http://www.opengis.net/wfs' xmlns:gml='http://www.opengis."
      "net/gml' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:xlink='http://www.w3."
      "org/1999/xlink' xsi:schemaLocation='http://x http://" +
      kServer +
      "/wfs?request="
      "DescribeFeatureType'><gml:featureMember><it><n>1</n><p><gml:pointProperty xlink:href='http:"
      "//" +
      kServer + "/p.gml#p'/></p></it></gml:featureMember></wfs:FeatureCollection>";
  return {
      {"OdbcDriverInVrt", "ogr", "./data/a.vrt", kFormat,
       File("data/a.vrt", Vrt("ODBC:DRIVER=./data/probe.so"))},
      {"VrtOfAServer", "ogr", "./data/a.vrt", kFormat, File("data/a.vrt", Vrt("/vsicurl/" + web))},
      {"VrtWithinTheSource", "ogr", Vrt("ODBC:DRIVER=./data/probe.so"), ""},
      {"MsSql", "ogr", "MSSQL:server=./data/probe.so;driver=./data/probe.so", kNotThere},
      {"PGeo", "ogr", "PGEO:DRIVER=./data/probe.so", kNotThere},
      {"PostgreSql", "ogr", "PG:host=127.0.0.1 port=9", kNotThere},
      {"TableOfAServer", "postgres", "host=127.0.0.1 port=9 dbname='x' table=\"it\"", kAllow},
      {"TableBehindAService", "postgres", "service='x' host=127.0.0.1 port=9 table=\"it\"", kAllow},
      {"TableOfANumber", "postgres", "host='/tmp' hostaddr=127.0.0.1 port=9 table=\"it\"",
       "number"},
      {"MySql", "ogr", "MYSQL:x,host=127.0.0.1,port=9", kNotThere},
      {"Wfs", "ogr", "WFS:http://" + kServer, kNoFile},
      {"Web", "ogr", web, kNoFile},
      {"WebWithinDelimitedText", "delimitedtext", web + "?type=csv", kNoFile},
      {"VsiCurl", "ogr", "/vsicurl/" + web, kNoFile},
      {"VsiS3", "ogr", "/vsis3/bucket/a.geojson", kNoFile},
      {"ArchiveOfAServer", "ogr", "/vsizip//vsicurl/http://" + kServer + "/a.zip/a.shp", kNoFile},
      {"ArchiveOfAServerInBraces", "ogr", "/vsizip/{/vsicurl/" + web + "}/a.shp", kNoFile},
      {"Prelude", "ogr", "./data/a.gpkg|option:PRELUDE_STATEMENTS=VACUUM INTO '../written.db'",
       kOption, Sql("data/a.gpkg", "CREATE TABLE it (n INTEGER)")},
      {"VirtualOgr", "ogr", "./data/a.sqlite|layername=it", kTable,
       Sql("data/a.sqlite", VirtualTable("VirtualOGR(''/vsicurl/" + web + "'')"))},
      {"VirtualShape", "spatialite", "dbname='./data/a.sqlite' table=\"it\"", kTable,
       Sql("data/a.sqlite", VirtualTable("VirtualShape(''../secret'', ''UTF-8'', 4326)"))},
      {"GeocodingView", "ogr", "./data/a.sqlite|layername=it", nullptr,
       Sql("data/a.sqlite",
           "CREATE VIEW it AS SELECT ogr_geocode('x') n, readfile('/etc/passwd') p")},
      {"GeocodingFilter", "ogr", "./data/a.sqlite|layername=it", nullptr,
       Sql("data/a.sqlite", "CREATE TABLE it (n INTEGER); INSERT INTO it VALUES (1)"),
       "ogr_geocode('x') IS NULL"},
      {"ExtensionInFilter", "ogr", "./data/a.sqlite|layername=it", "its filter can't be used",
       Sql("data/a.sqlite", "CREATE TABLE it (n INTEGER); INSERT INTO it VALUES (1)"),
       "load_extension('./data/probe.so') IS NULL"},
      {"SchemaOfGml", "ogr", "./data/a.gml", nullptr, File("data/a.gml", gml)},
      {"ReferenceSystemOfGeoJson", "ogr", "./data/a.geojson", nullptr,
       File("data/a.geojson", R"({"type":"FeatureCollection","crs":{"type":"link","properties":)"
                              R"({"href":"http://)" +
                                  kServer +
                                  R"(/c","type":"ogcwkt"}},)"
                                  R"("features":[)" +
                                  kPoint + "]}")},
      {"ReferenceSystemOfTheProject",
       "ogr",
       "./data/quakes.shp",
       nullptr,
       {},
       {},
       "http://" + kServer + "/crs"},
      {"RasterOfAServer", "gdal", "/vsicurl/http://" + kServer + "/a.tif", kNoFile},
      {"RasterVrt", "gdal", "./data/a.vrt", kFormat,
       File("data/a.vrt",
            "<VRTDataset rasterXSize='1' rasterYSize='1'><VRTRasterBand band='1'>"
            "<SimpleSource><SourceFilename>/vsicurl/http://" +
                kServer + "/a.tif</SourceFilename></SimpleSource></VRTRasterBand></VRTDataset>")},
      {"WebMap", "gdal",
       "<GDAL_WMS><Service name='TMS'><ServerUrl>http://" + kServer +
           "</ServerUrl></Service></GDAL_WMS>",
       ""},
      {"PipeAsData", "ogr", "./data/a.geojson", kPipe, Pipe("data/a.geojson")},
      {"PipeAsTable", "ogr", "./data/quakes.shp", kPipe, Pipe("data/quakes.dbf")},
      {"PipeInAFolder", "ogr", "./data", kPipe, Pipe("data/a.shp")},
      {"PipeAsQuickLoad", "ogr", "./data/quakes.shp", nullptr, Pipe("QuickLoad.txt")},
      {"PipeAsMediaList", "ogr", "./data/quakes.shp", nullptr, Pipe("media_list.txt")},
  };
}

class AttackTest : public testing::TestWithParam<Attack> {};

TEST_P(AttackTest, DoesNothing) {
  const Attack& attack = GetParam();
  const HostileModule module;
  if (attack.prepare) attack.prepare(module);
  module.Layer(attack.provider, attack.source, attack.subset, attack.crs);
  const Watched watched = Supervise({BRELMON_PROGRAM, module.Path()}, module.Path(), kActions);
  EXPECT_EQ(Together(watched.deeds), "") << watched.out << watched.err;
  EXPECT_LT(watched.status, 2) << watched.err;
  if (attack.reason == nullptr) return;
  const auto told = watched.err.find("it: not opened: ");
  ASSERT_NE(told, std::string::npos) << watched.out << watched.err;
  EXPECT_NE(watched.err.find(attack.reason, told), std::string::npos) << watched.err;
}

INSTANTIATE_TEST_SUITE_P(Hostile, AttackTest, testing::ValuesIn(Attacks()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace brelmon::hostile
