// SPDX-License-Identifier: GPL-2.0-or-later
// One table of the kinds that are known.
#include "hosts/headless/sourcekind.h"

#include <cpl_conv.h>

#include <array>

namespace brelmon::headless {
namespace {

struct SourceKind {
  const char* driver;
  const char* extension;
  TextView name;
  bool oneTable;
  bool ownSql;
};

constexpr std::array<SourceKind, 10> kKinds = {{
    {"ESRI Shapefile", "shp", u"Shapefile", true, false},
    {"ESRI Shapefile", "dbf", u"Shapefile", true, false},
    {"GPKG", "gpkg", u"GeoPackage", false, true},
    {"GeoJSON", "geojson", u"GeoJSON", true, false},
    {"CSV", "csv", u"Delimited Text", true, false},
    {"PGeo", "mdb", u"Personal Geodatabase", false, true},
    {"OpenFileGDB", "gdb", u"File Geodatabase", false, false},
    {"FileGDB", "gdb", u"File Geodatabase", false, false},
    {"SQLite", "sqlite", u"SQLite", false, true},
    {"PostgreSQL", "", u"SDE", false, true},
}};

}  // namespace

Text KindOf(const std::string& path, const std::string& driver) {
  const char* extension = CPLGetExtension(path.c_str());
  for (const SourceKind& kind : kKinds) {
    if (driver.empty() ? *extension != '\0' && EQUAL(extension, kind.extension)
                       : driver == kind.driver) {
      return Text(kind.name);
    }
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
  // Databases that are not listed: their own SQL answers for itself when it is tried.
  return true;
}

}  // namespace brelmon::headless
