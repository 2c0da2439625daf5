// SPDX-License-Identifier: GPL-2.0-or-later
// One table of the kinds that are known.
#include "hosts/data/sourcekind.h"

#include <array>
#include <filesystem>

namespace brelmon::data {
namespace {

struct SourceKind {
  std::string_view driver;
  std::string_view extension;  // with its point
  TextView name;
  bool oneTable;
  bool ownSql;
};

constexpr std::array<SourceKind, 13> kKinds = {{
    {"ESRI Shapefile", ".shp", u"Shapefile", true, false},
    {"ESRI Shapefile", ".dbf", u"Shapefile", true, false},
    {"GPKG", ".gpkg", u"GeoPackage", false, true},
    {"GeoJSON", ".geojson", u"GeoJSON", true, false},
    {"CSV", ".csv", u"Delimited Text", true, false},
    {"Delimited text file", "", u"Delimited Text", true, false},
    {"PGeo", ".mdb", u"Personal Geodatabase", false, true},
    {"MDB", "", u"Personal Geodatabase", false, true},
    {"OpenFileGDB", ".gdb", u"File Geodatabase", false, false},
    {"FileGDB", ".gdb", u"File Geodatabase", false, false},
    {"SQLite", ".sqlite", u"SQLite", false, true},
    {"PostgreSQL", "", u"PostgreSQL", false, true},
    {"PostgreSQL database with PostGIS extension", "", u"PostgreSQL", false, true},
}};

}  // namespace

Text KindOf(const std::string& path, const std::string& driver) {
  const Text extension = FromUtf8(std::filesystem::path(path).extension().string());
  for (const SourceKind& kind : kKinds) {
    const bool same = driver.empty()
                          ? !extension.empty() && EqualNoCase(extension, FromUtf8(kind.extension))
                          : EqualNoCase(FromUtf8(driver), FromUtf8(kind.driver));
    if (same) return Text(kind.name);
  }
  return driver.empty() ? Text(u"Unknown") : FromUtf8(driver);
}

bool HoldsOneTable(const Text& kind) {
  for (const SourceKind& known : kKinds) {
    if (known.name == kind) return known.oneTable;
  }
  return true;
}

bool HasSqlOfItsOwn(const std::string& driver) {
  for (const SourceKind& kind : kKinds) {
    if (driver == kind.driver) return kind.ownSql;
  }
  return false;
}

}  // namespace brelmon::data
