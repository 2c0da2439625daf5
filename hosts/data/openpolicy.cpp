// SPDX-License-Identifier: GPL-2.0-or-later
// Allow-lists: what isn't named here isn't opened.
#include "hosts/data/openpolicy.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <fcntl.h>
#include <ogrsf_frmts.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "hosts/data/databaseschema.h"
#include "hosts/data/shapefileparts.h"

namespace brelmon::data {
namespace {

constexpr std::array<const char*, 10> kRowDrivers = {
    "ESRI Shapefile", "GPKG", "SQLite", "GeoJSON",    "CSV",
    "LIBKML",         "KML",  "GML",    "FlatGeobuf", nullptr};
constexpr std::array<const char*, 6> kPixelDrivers = {"GTiff",   "PNG",  "JPEG",
                                                      "AAIGrid", "GPKG", nullptr};

/// Options that say how to read what stands in the file itself.
constexpr std::array<std::string_view, 20> kOptions = {"ENCODING",
                                                       "DBF_DATE_LAST_UPDATE",
                                                       "ADJUST_TYPE",
                                                       "ADJUST_GEOM_TYPE",
                                                       "X_POSSIBLE_NAMES",
                                                       "Y_POSSIBLE_NAMES",
                                                       "Z_POSSIBLE_NAMES",
                                                       "GEOM_POSSIBLE_NAMES",
                                                       "KEEP_GEOM_COLUMNS",
                                                       "HEADERS",
                                                       "SEPARATOR",
                                                       "MERGE_SEPARATOR",
                                                       "AUTODETECT_TYPE",
                                                       "AUTODETECT_WIDTH",
                                                       "AUTODETECT_SIZE_LIMIT",
                                                       "EMPTY_STRING_AS_NULL",
                                                       "QUOTED_FIELDS_AS_STRING",
                                                       "LIST_ALL_TABLES",
                                                       "FLATTEN_NESTED_ATTRIBUTES",
                                                       "ARRAY_AS_STRING"};

/// Endings of files that a driver reads beside the one that it was given.
constexpr std::array<const char*, 24> kBeside = {
    ".shp", ".shx", ".dbf",  ".prj", ".cpg", ".qix", ".sbn", ".sbx",
    ".idm", ".ind", ".csvt", ".gfs", ".xsd", ".ovr", ".msk", ".tfw",
    ".wld", ".pgw", ".jgw",  ".aux", ".tab", ".cst", ".qpj", ".resolved.gml"};

bool StartsWith(const std::string& text, const char* start) { return text.rfind(start, 0) == 0; }

enum class There { Nothing, Readable, Other };

/// Pipes, devices and sockets may keep a reader waiting for ever.
There LookAt(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return There::Nothing;
  return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode) ? There::Readable : There::Other;
}

bool IsFolder(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The archive of "/vsizip/{archive}/inside"; empty where the path is none like that.
std::string ArchiveOf(const std::string& path) {
  constexpr std::string_view kStart = "/vsizip/{";
  if (path.compare(0, kStart.size(), kStart) != 0) return {};
  const std::size_t end = path.find('}');
  if (end == std::string::npos || path.find("/vsi", 1) != std::string::npos) return {};
  return path.substr(kStart.size(), end - kStart.size());
}

/// What stands beside a file and can't be read like one.
std::string OddNeighbour(const std::string& path) {
  const std::string stem = path.substr(0, path.rfind('.'));
  for (const char* ending : kBeside) {
    std::string upper = ending;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char unit) { return static_cast<char>(std::toupper(unit)); });
    for (const std::string& each : {stem + ending, stem + upper, path + ending}) {
      if (LookAt(each) == There::Other) return each;
    }
  }
  for (const char* ending : {"-wal", "-shm", "-journal", ".aux.xml"}) {
    if (LookAt(path + ending) == There::Other) return path + ending;
  }
  return {};
}

std::string OddEntry(const std::string& folder) {
  const CPLStringList names(VSIReadDir(folder.c_str()), TRUE);
  for (int i = 0; i < names.size(); ++i) {
    const std::string each = folder + "/" + names[i];
    if (LookAt(each) == There::Other) return each;
  }
  return {};
}

std::string RefusalOfPath(const std::string& path) {
  std::string file = path;
  if (StartsWith(path, "/vsi")) {
    file = ArchiveOf(path);
    if (file.empty() || IsFolder(file)) return "it is no file of this computer";
  }
  if (file.empty() || file[0] != '/') return "it is no file of this computer";
  if (LookAt(file) == There::Other) return "it is a pipe or a device, no file";
  const std::string odd = IsFolder(file) ? OddEntry(file) : OddNeighbour(file);
  return odd.empty() ? "" : odd + " beside it is a pipe or a device, no file";
}

std::string RefusalOfOptions(const std::vector<std::string>& options) {
  for (const std::string& option : options) {
    const std::string name = option.substr(0, option.find('='));
    const bool known = std::any_of(kOptions.begin(), kOptions.end(), [&](std::string_view each) {
      return EQUAL(std::string(each).c_str(), name.c_str());
    });
    if (!known) return "its open option " + name + " is not allowed";
  }
  return {};
}

const char* const* DriversOf(Content content) {
  return content == Content::Rows ? kRowDrivers.data() : kPixelDrivers.data();
}

bool IsAllowed(const char* const* drivers, const std::string& name) {
  for (; *drivers != nullptr; ++drivers) {
    if (name == *drivers) return true;
  }
  return false;
}

unsigned FlagOf(Content content) {
  return content == Content::Rows ? GDAL_OF_VECTOR : GDAL_OF_RASTER;
}

/// Whether fewer files could be opened than one source is made of.
bool TooManyFiles() {
  std::array<int, 4> probes{};
  int error = 0;
  for (int& probe : probes) {
    probe = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (probe < 0) error = errno;
  }
  for (const int probe : probes) {
    if (probe >= 0) ::close(probe);
  }
  return error == EMFILE || error == ENFILE;
}

std::string ReasonOfGdal() {
  const std::string reason = CPLGetLastErrorMsg();
  const bool unknown = reason.empty() || reason.find("not recognized as") != std::string::npos;
  return unknown ? "its format is none that is read" : reason;
}

/// What keeps even an allowed source from being read.
std::string DamageOf(const std::string& path, Content content) {
  const std::string archive = ArchiveOf(path);
  if (LookAt(archive.empty() ? path : archive) == There::Nothing) {
    return errno == EACCES ? "it can't be read: permission denied" : "there is no such file";
  }
  return content == Content::Rows ? DamageOfShapefile(path) : "";
}

/// Where GDAL is not ours alone it has more drivers, and opens with the first that knows the file.
std::string RefusalOfFormat(const std::string& path, Content content) {
  const GDALDriverH driver = GDALIdentifyDriverEx(path.c_str(), FlagOf(content), nullptr, nullptr);
  if (driver == nullptr || IsAllowed(DriversOf(content), GDALGetDescription(driver))) return {};
  return "its format is none that is read";
}

}  // namespace

std::string RefusalOf(const SourceAddress& address, Content content) {
  if (!address.problem.empty()) return address.problem;
  std::string refusal = RefusalOfPath(address.path);
  if (refusal.empty()) refusal = RefusalOfOptions(address.openOptions);
  if (refusal.empty()) refusal = RefusalOfSchema(address.path);
  if (refusal.empty()) refusal = RefusalOfFormat(address.path, content);
  return refusal;
}

bool IsDamaged(const SourceAddress& address, Content content) {
  const std::string refusal = RefusalOf(address, content);
  return refusal.empty() || StartsWith(refusal, kUnreadableSchema);
}

GDALDatasetUniquePtr OpenData(const SourceAddress& address, Content content, std::string& problem) {
  problem = RefusalOf(address, content);
  if (problem.empty()) problem = DamageOf(address.path, content);
  if (!problem.empty()) {
    if (TooManyFiles()) problem = kTooManyFiles;
    return nullptr;
  }
  CPLStringList drivers, options;
  for (const std::string& driver : address.drivers) {
    if (IsAllowed(DriversOf(content), driver)) drivers.AddString(driver.c_str());
  }
  for (const std::string& option : address.openOptions) options.AddString(option.c_str());
  // A schema's address, or a file of notes written beside the data.
  if (EQUAL(CPLGetExtension(address.path.c_str()), "gml")) {
    options.SetNameValue("DOWNLOAD_SCHEMA", "NO");
    options.SetNameValue("WRITE_GFS", "NO");
  }
  CPLErrorReset();
  GDALDatasetUniquePtr dataset(GDALDataset::Open(
      address.path.c_str(), FlagOf(content) | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
      drivers.empty() ? DriversOf(content) : drivers.List(), options.List()));
  if (!dataset) problem = TooManyFiles() ? kTooManyFiles : ReasonOfGdal();
  return dataset;
}

std::unique_ptr<OGRSpatialReference> ReferenceSystemIn(const std::string& definition) {
  auto system = std::make_unique<OGRSpatialReference>();
  const CSLConstList limits = OGRSpatialReference::SET_FROM_USER_INPUT_LIMITATIONS_get();
  if (system->SetFromUserInput(definition.c_str(), limits) != OGRERR_NONE) return nullptr;
  system->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return system;
}

}  // namespace brelmon::data
