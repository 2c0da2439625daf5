// SPDX-License-Identifier: GPL-2.0-or-later
// GDAL without the network, without plug-ins, without what a settings file says.
#include <cpl_conv.h>
#include <cpl_http.h>
#include <cpl_string.h>
#include <cpl_vsi_virtual.h>
#include <gdal_frmts.h>
#include <ogr_srs_api.h>
#include <ogrsf_frmts.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "hosts/data/openpolicy.h"

namespace brelmon::data {
namespace {

using Setting = std::pair<const char*, const char*>;
constexpr std::array<Setting, 11> kSettings = {{
    {"GDAL_CONFIG_FILE", "/dev/null"},
    {"GDAL_DRIVER_PATH", "disable"},
    // Files beside a picture may name others.
    {"GDAL_PAM_ENABLED", "NO"},
    // Tables of a database that stand for files and servers; functions called by its views.
    {"OGR_SQLITE_STATIC_VIRTUAL_OGR", "NO"},
    {"OGR_SQLITE_PRAGMA", "trusted_schema=OFF"},
    {"OGR_SQLITE_LOAD_EXTENSIONS", ""},
    {"GML_DOWNLOAD_WFS_SCHEMA", "NO"},
    {"GML_SKIP_RESOLVE_ELEMS", "ALL"},
    {"GML_PARSER", "EXPAT"},
    {"GML_GFS_TEMPLATE", ""},
    {"GML_REGISTRY", "/dev/null"},
}};

/// What databases may hold in memory at once. A clause of a few letters can ask for a text of a
/// thousand million.
constexpr sqlite3_int64 kDatabaseMemory = sqlite3_int64{512} << 20;

constexpr std::array<std::string_view, 2> kFileSystems = {"/vsizip/", "/vsimem/"};

/// Stands where a network file system stood.
class NoFileSystem : public VSIFilesystemHandler {
 public:
  VSIVirtualHandle* Open(const char*, const char*, bool, CSLConstList) override {
    errno = EACCES;
    return nullptr;
  }
  int Stat(const char*, VSIStatBufL*, int) override {
    errno = EACCES;
    return -1;
  }
};

/// A handler that is replaced is nobody's any more; one place remembers it.
void CloseFileSystems() {
  static std::vector<VSIFilesystemHandler*> replaced;
  const CPLStringList prefixes(VSIGetFileSystemsPrefixes(), TRUE);
  for (int i = 0; i < prefixes.size(); ++i) {
    const std::string prefix = prefixes[i];
    if (std::count(kFileSystems.begin(), kFileSystems.end(), prefix) != 0) continue;
    replaced.push_back(VSIFileManager::GetHandler(prefix.c_str()));
    VSIFileManager::InstallHandler(prefix, new NoFileSystem);
  }
}

CPLHTTPResult* NoFetch(const char*, CSLConstList, GDALProgressFunc, void*, CPLHTTPFetchWriteFunc,
                       void*, void*) {
  auto* result = static_cast<CPLHTTPResult*>(CPLCalloc(1, sizeof(CPLHTTPResult)));
  result->nStatus = 1;
  result->pszErrBuf = CPLStrdup("the network is not used");
  CPLError(CE_Failure, CPLE_AppDefined, "The network is not used.");
  return result;
}

void RegisterDrivers() {
  GDALRegister_GTiff();
  GDALRegister_PNG();
  GDALRegister_JPEG();
  GDALRegister_AAIGrid();
  RegisterOGRShape();
  RegisterOGRGeoPackage();
  RegisterOGRSQLite();
  RegisterOGRGeoJSON();
  RegisterOGRCSV();
  RegisterOGRLIBKML();
  RegisterOGRKML();
  RegisterOGRGML();
  RegisterOGRFlatGeobuf();
}

/// What only makes data in memory: a file of theirs would name others, or a place in memory.
void RegisterMakers() {
  GDALRegister_MEM();
  GDALRegister_VRT();
  for (const char* name : {"MEM", "VRT"}) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(name);
    if (driver == nullptr) continue;
    driver->pfnOpen = nullptr;
    driver->pfnIdentify = nullptr;
  }
}

}  // namespace

void ConfineGdal() {
  static const bool once = [] {
    for (const auto& [name, value] : kSettings) CPLSetConfigOption(name, value);
    ::unsetenv("SPATIALITE_SECURITY");
    sqlite3_hard_heap_limit64(kDatabaseMemory);
    CloseFileSystems();
    CPLHTTPSetFetchCallback(NoFetch, nullptr);
    OSRSetPROJEnableNetwork(FALSE);
    RegisterDrivers();
    RegisterMakers();
    return true;
  }();
  static_cast<void>(once);
}

}  // namespace brelmon::data
