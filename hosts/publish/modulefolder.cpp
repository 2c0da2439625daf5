// SPDX-License-Identifier: GPL-2.0-or-later
// Paths, with links followed before anything is believed.
#include "hosts/publish/modulefolder.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <filesystem>
#include <pugixml.hpp>

#include "hosts/common/paths.h"
#include "hosts/data/openpolicy.h"

namespace brelmon::publish {
namespace {

namespace fs = std::filesystem;

std::string Real(const std::string& path) {
  std::error_code error;
  const fs::path real = fs::weakly_canonical(path, error);
  return error ? std::string() : real.string();
}

std::optional<std::string> Below(const std::string& path, const std::string& folder) {
  const std::string start = folder == "/" ? folder : folder + "/";
  if (path.size() <= start.size() || path.compare(0, start.size(), start) != 0) return {};
  return path.substr(start.size());
}

/// The file that a path of GDAL leads into; empty where there is none on this system.
std::string FileBehind(std::string path) {
  if (path.rfind("/vsi", 0) != 0) return path;
  while (path.rfind("/vsi", 0) == 0) {
    const std::size_t slash = path.find('/', 1);
    path = slash == std::string::npos ? "" : path.substr(slash + 1);
    if (!path.empty() && path[0] == '{') path = path.substr(1, path.find('}') - 1);
  }
  while (!path.empty() && !host::FileExists(path)) {
    const std::size_t slash = path.rfind('/');
    path = slash == std::string::npos ? "" : path.substr(0, slash);
  }
  return path;
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
}

/// Follows what data refer to, as far as GDAL tells.
class References {
 public:
  explicit References(const ModuleFolder& module) : module_(module) {}

  std::optional<std::string> Outside(const data::SourceAddress& address, int depth) const {
    constexpr int kDeepest = 8;
    if (!module_.Inside(address.path) || depth > kDeepest) return address.path;
    for (const std::string& file : FilesOf(address)) {
      if (!module_.Inside(file)) return file;
      const bool refersOn = file != address.path && EQUAL(CPLGetExtension(file.c_str()), "vrt");
      if (!refersOn) continue;
      data::SourceAddress next;
      next.path = file;
      if (const auto outside = Outside(next, depth + 1)) return outside;
    }
    return {};
  }

 private:
  /// Absolute.
  static std::vector<std::string> FilesOf(const data::SourceAddress& address) {
    std::string problem;
    GDALDatasetUniquePtr dataset = data::OpenData(address, data::Content::Rows, problem);
    if (!dataset) dataset = data::OpenData(address, data::Content::Pixels, problem);
    if (!dataset) return {};
    // A virtual layer opens its source when it is first asked for something.
    for (int i = 0; i < dataset->GetLayerCount(); ++i) dataset->GetLayer(i)->GetLayerDefn();
    const CPLStringList listed(dataset->GetFileList(), TRUE);
    std::vector<std::string> files = SourcesInXml(*dataset, address.path);
    for (int i = 0; i < listed.size(); ++i) {
      std::error_code error;
      const std::string file = listed[i];
      files.push_back(file.rfind("/vsi", 0) == 0 ? file : fs::absolute(file, error).string());
    }
    return files;
  }

  /// Of a file of virtual layers, some kinds of which GDAL doesn't list.
  static std::vector<std::string> SourcesInXml(GDALDataset& dataset, const std::string& path) {
    std::vector<std::string> sources;
    pugi::xml_document xml;
    const bool isVirtual = dataset.GetDriverName() == std::string("OGR_VRT");
    if (!isVirtual || !xml.load_file(path.c_str())) return sources;
    for (const pugi::xpath_node& each : xml.select_nodes("//SrcDataSource")) {
      const pugi::xml_node source = each.node();
      const std::string text = source.text().as_string();
      const bool relative = source.attribute("relativeToVRT").as_bool();
      sources.push_back(relative ? (fs::path(path).parent_path() / text).string() : text);
    }
    return sources;
  }

  const ModuleFolder& module_;
};

}  // namespace

ModuleFolder::ModuleFolder(const std::string& document)
    : path_(fs::path(document).parent_path().string()), real_(Real(path_)) {}

std::optional<std::string> ModuleFolder::Inside(const std::string& systemPath) const {
  const std::string file = FileBehind(systemPath);
  if (file.empty() || file[0] != '/') return {};
  const auto real = Below(Real(file), real_);
  if (!real) return {};
  const auto named = Below(fs::path(file).lexically_normal().string(), path_);
  return named ? named : real;
}

std::string ModuleFolder::Windows(const std::string& systemPath) const {
  std::string name = fs::path(path_).filename().string();
  if (const auto inside = Inside(systemPath)) {
    name += "/" + *inside;
  } else if (Real(systemPath) != real_) {
    // Of what lies elsewhere the folders are nobody's business.
    name += "/" + fs::path(systemPath).filename().string();
  }
  std::replace(name.begin(), name.end(), '/', '\\');
  return "Z:\\" + name;
}

std::string ModuleFolder::Purged(std::string message) const {
  for (const std::string& folder : {path_, real_}) {
    if (folder.empty() || folder == "/") continue;
    ReplaceAll(message, folder + "/", "");
    ReplaceAll(message, folder, ".");
  }
  return message;
}

std::optional<std::string> FileOutside(const ModuleFolder& module,
                                       const data::SourceAddress& address) {
  return References(module).Outside(address, 0);
}

}  // namespace brelmon::publish
