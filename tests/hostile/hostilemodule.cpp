// SPDX-License-Identifier: GPL-2.0-or-later
// A module that is all right but for what a test puts into it.
#include "tests/hostile/hostilemodule.h"

#include <sqlite3.h>

#include <filesystem>
#include <stdexcept>

namespace brelmon::hostile {
namespace {

namespace fs = std::filesystem;

std::string Escaped(const std::string& text) {
  std::string xml;
  for (const char unit : text) {
    xml += unit == '<' ? "&lt;" : unit == '&' ? "&amp;" : std::string(1, unit);
  }
  return xml;
}

}  // namespace

HostileModule::HostileModule() {
  Write("media_list.txt", "");
  fs::create_directory(Path("data"));
  fs::copy(HOSTILE_PROBE, Path("data/probe.so"));
  for (const char* ending : {"shp", "shx", "dbf", "prj"}) {
    const std::string name = std::string("data/quakes.") + ending;
    fs::copy(std::string(BRELMON_SOURCE_DIR "/samples/earth/") + name, Path(name));
  }
}

void HostileModule::Layer(const std::string& provider, const std::string& source,
                          const std::string& subset, const std::string& crs) const {
  const std::string type = provider == "gdal" ? "raster" : "vector";
  Write("map.qgs",
        "<qgis><projectCrs><spatialrefsys><authid>" + crs +
            "</authid></spatialrefsys></projectCrs><layer-tree-group><layer-tree-layer id=\"it\" "
            "name=\"it\"/></layer-tree-group><projectlayers><maplayer type=\"" +
            type +
            "\" geometry=\"Point\"><id>it</id><layername>it</layername><srs><spatialrefsys>"
            "<authid>" +
            crs + "</authid></spatialrefsys></srs><datasource>" + Escaped(source) +
            "</datasource><provider>" + provider + "</provider><subset>" + Escaped(subset) +
            "</subset></maplayer></projectlayers></qgis>\n");
}

void HostileModule::Database(const std::string& name, const std::string& sql) const {
  sqlite3* database = nullptr;
  const bool done = sqlite3_open(Path(name).c_str(), &database) == SQLITE_OK &&
                    sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  const std::string reason = sqlite3_errmsg(database);
  sqlite3_close(database);
  if (!done) throw std::runtime_error(name + ": " + reason);
}

void HostileModule::CutToHalf(const std::string& name) const {
  fs::resize_file(Path(name), fs::file_size(Path(name)) / 2);
}

}  // namespace brelmon::hostile
