// SPDX-License-Identifier: GPL-2.0-or-later
// Data sources as the providers ogr, delimitedtext, spatialite and postgres write them.
#include "hosts/data/sourceaddress.h"

#include <cpl_conv.h>
#include <cpl_string.h>

#include <algorithm>
#include <map>

#include "hosts/common/paths.h"

namespace brelmon::data {
namespace {

std::string Unescaped(const std::string& text) {
  char* plain = CPLUnescapeString(text.c_str(), nullptr, CPLES_URL);
  std::string result = plain;
  CPLFree(plain);
  return result;
}

bool IsWindowsPath(const std::string& path) {
  return path.size() > 2 && std::isalpha(static_cast<unsigned char>(path[0])) != 0 &&
         path[1] == ':' && (path[2] == '/' || path[2] == '\\');
}

std::string Located(std::string path, const std::string& folder);

/// `/vsizip/{archive}/inside`, the archive located: the shortest beginning of the path that is a
/// file, where no braces tell.
std::string InArchive(const std::string& path, const std::string& folder) {
  const std::size_t close = path.find('}');
  if (path[0] == '{' && close != std::string::npos) {
    return "/vsizip/{" + Located(path.substr(1, close - 1), folder) + "}" + path.substr(close + 1);
  }
  for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const std::string archive = Located(path.substr(0, end), folder);
    const bool last = end == std::string::npos;
    if (host::FileExists(archive) || last) {
      return "/vsizip/{" + archive + "}" + (last ? "" : path.substr(end));
    }
  }
}

/// An absolute path of this system; what is no path stays.
std::string Located(std::string path, const std::string& folder) {
  constexpr std::string_view kArchive = "/vsizip/";
  if (path.starts_with(kArchive) && path.size() > kArchive.size()) {
    return InArchive(path.substr(kArchive.size()), folder);
  }
  if (path.rfind("/vsi", 0) == 0) return path;
  if (IsWindowsPath(path)) return host::Paths().ToSystem(FromUtf8(path)).value_or(path);
  if (path.find("://") != std::string::npos) return path;
  if (path.empty() || path[0] != '/') path = folder + "/" + path;
  const std::string real = host::TrueCase(path);
  if (host::FileExists(real) || host::FolderExists(real)) return real;
  // Written on a system with other separators.
  std::replace(path.begin(), path.end(), '\\', '/');
  return host::TrueCase(path);
}

/// `path|layername=...|option:NAME=VALUE|subset=...`; the subset goes to the end.
SourceAddress OgrAddress(const std::string& source, const std::string& folder) {
  SourceAddress address;
  const std::size_t subset = source.find("|subset=");
  if (subset != std::string::npos) address.subset = source.substr(subset + 8);
  const CPLStringList parts(
      CSLTokenizeString2(source.substr(0, subset).c_str(), "|", CSLT_ALLOWEMPTYTOKENS), TRUE);
  for (int i = 1; i < parts.size(); ++i) {
    const std::string part = parts[i];
    const std::size_t equals = std::min(part.find('='), part.size());
    const std::string key = part.substr(0, equals);
    const std::string value = equals < part.size() ? part.substr(equals + 1) : "";
    if (key == "layername") address.layer = value;
    if (key == "layerid") address.layerNumber = std::atoi(value.c_str());
    if (key.rfind("option:", 0) == 0) address.openOptions.push_back(part.substr(7));
  }
  if (parts.size() > 0) address.path = Located(parts[0], folder);
  return address;
}

std::map<std::string, std::string> QueryItems(const std::string& query) {
  std::map<std::string, std::string> items;
  const CPLStringList parts(CSLTokenizeString2(query.c_str(), "&", 0), TRUE);
  for (int i = 0; i < parts.size(); ++i) {
    std::string part = parts[i];
    std::replace(part.begin(), part.end(), '+', ' ');
    const std::size_t equals = std::min(part.find('='), part.size());
    items[part.substr(0, equals)] =
        equals < part.size() ? Unescaped(part.substr(equals + 1)) : std::string();
  }
  return items;
}

/// `file:///folder/x.csv?type=csv&delimiter=;&xField=...&yField=...`
SourceAddress DelimitedAddress(const std::string& source, const std::string& folder) {
  SourceAddress address;
  const std::size_t mark = source.find('?');
  std::string path = Unescaped(source.substr(0, mark));
  if (path.rfind("file:", 0) == 0) path = path.substr(5);
  if (path.rfind("///", 0) == 0) path = path.substr(2);
  if (path.size() > 1 && path[0] == '/' && IsWindowsPath(path.substr(1))) path = path.substr(1);
  address.path = Located(path, folder);
  address.drivers = {"CSV"};
  auto items = QueryItems(mark == std::string::npos ? "" : source.substr(mark + 1));
  const std::string delimiter = items["delimiter"];
  if (!delimiter.empty() && std::string(",;| \t").find(delimiter) == std::string::npos &&
      delimiter != "\\t") {
    address.problem = "its delimiter \"" + delimiter + "\" is not supported";
  }
  if (items["type"] == "regexp") address.problem = "its lines are split by a pattern";
  if (!items["xField"].empty() && !items["yField"].empty()) {
    address.openOptions.push_back("X_POSSIBLE_NAMES=" + items["xField"]);
    address.openOptions.push_back("Y_POSSIBLE_NAMES=" + items["yField"]);
  }
  if (!items["wktField"].empty()) {
    address.openOptions.push_back("GEOM_POSSIBLE_NAMES=" + items["wktField"]);
  }
  if (!items["useHeader"].empty()) {
    address.openOptions.push_back("HEADERS=" + items["useHeader"]);
  }
  const bool typed = items["detectTypes"].empty() || CPLTestBool(items["detectTypes"].c_str());
  address.openOptions.push_back(typed ? "AUTODETECT_TYPE=YES" : "AUTODETECT_TYPE=NO");
  // A column may turn out to be of texts at the last line.
  address.openOptions.emplace_back("AUTODETECT_SIZE_LIMIT=0");
  address.openOptions.emplace_back("EMPTY_STRING_AS_NULL=YES");
  address.subset = items["subset"];
  return address;
}

/// The value of `key='...'` or `key="..."`, marks undone.
std::string Quoted(const std::string& source, const std::string& key) {
  const std::size_t at = source.find(key + "=");
  if (at == std::string::npos) return {};
  std::size_t from = at + key.size() + 1;
  if (from >= source.size() || (source[from] != '\'' && source[from] != '"')) return {};
  const std::size_t to = source.find(source[from], from + 1);
  return to == std::string::npos ? "" : source.substr(from + 1, to - from - 1);
}

/// `dbname='x.sqlite' table="t" (geom) sql=...`
SourceAddress SpatialiteAddress(const std::string& source, const std::string& folder) {
  SourceAddress address;
  address.path = Located(Quoted(source, "dbname"), folder);
  address.layer = Quoted(source, "table");
  const std::size_t sql = source.find("sql=");
  if (sql != std::string::npos) address.subset = source.substr(sql + 4);
  return address;
}

SourceAddress ServerAddress(const std::string& source) {
  SourceAddress address;
  const auto server = std::make_shared<servers::Address>(servers::ReadAddress(source));
  address.path = server->Shown();
  address.layer = server->Table;
  address.subset = server->Filter;
  address.problem = server->Problem;
  address.server = server;
  return address;
}

}  // namespace

SourceAddress AddressOf(const SourceText& layer, const std::string& folder) {
  SourceAddress address;
  if (layer.provider == "delimitedtext") {
    address = DelimitedAddress(layer.dataSource, folder);
  } else if (layer.provider == "spatialite") {
    address = SpatialiteAddress(layer.dataSource, folder);
  } else if (layer.provider == "ogr" || layer.provider.empty()) {
    address = OgrAddress(layer.dataSource, folder);
  } else if (layer.provider == "postgres") {
    address = ServerAddress(layer.dataSource);
  } else {
    // There may be a password in what only the provider can read.
    address.path = layer.provider;
    address.problem = "its provider \"" + layer.provider + "\" is not supported";
  }
  if (!layer.subset.empty()) address.subset = layer.subset;
  if (!layer.filter.empty() && address.subset == layer.filterExpression) {
    address.subset = layer.filter;
  }
  if (!EQUAL(layer.encoding.c_str(), "System")) address.encoding = layer.encoding;
  return address;
}

}  // namespace brelmon::data
