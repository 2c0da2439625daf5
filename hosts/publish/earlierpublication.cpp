// SPDX-License-Identifier: GPL-2.0-or-later
// The names that a module.json tells of against those that are there.
#include "hosts/publish/earlierpublication.h"

#include <cpl_string.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

#include "hosts/common/paths.h"
#include "hosts/publish/json.h"
#include "hosts/publish/outputfolder.h"

namespace brelmon::publish {
namespace {

namespace fs = std::filesystem;

/// The bytes that a script of --single brings.
std::string BytesInScript(const std::string& script) {
  const std::size_t last = script.rfind('"');
  const std::size_t first = last == std::string::npos ? last : script.rfind('"', last - 1);
  if (first == std::string::npos) return {};
  std::string base64 = script.substr(first + 1, last - first - 1);
  const int size = CPLBase64DecodeInPlace(reinterpret_cast<GByte*>(base64.data()));
  return base64.substr(0, static_cast<std::size_t>(std::max(size, 0)));
}

Json ModuleOf(const std::string& folder) {
  const std::string plain = folder + "/" + kModuleFile, script = plain + ".js";
  std::string text;
  if (host::FileExists(plain)) {
    text = BytesOfFile(plain);
  } else if (host::FileExists(script)) {
    text = BytesInScript(BytesOfFile(script));
  }
  return Json::parse(text, nullptr, false);
}

void AddPictures(const Json& items, std::set<std::string>& names) {
  for (const Json& item : items) {
    if (!item.is_object()) continue;
    if (item.contains("picture")) names.insert(item.value("picture", std::string()));
    if (item.contains("items")) AddPictures(item["items"], names);
  }
}

/// Every file that belongs to the publication; none for a module.json of something else.
std::set<std::string> NamesIn(const Json& module) {
  std::set<std::string> names;
  const auto has = [&module](const char* key, Json::value_t type) {
    return module.contains(key) && module[key].type() == type;
  };
  const bool ours = module.is_object() && has("document", Json::value_t::string) &&
                    has("sources", Json::value_t::object) && has("frames", Json::value_t::array);
  if (!ours) return names;
  names.insert(std::begin(kPageFiles), std::end(kPageFiles));
  names.insert(kModuleFile);
  for (const Json& source : module["sources"]) {
    if (source.is_object()) names.insert(source.value("file", std::string()));
  }
  for (const char* key : {"texts", "media"}) {
    if (!module.contains(key)) continue;
    for (const Json& path : module[key]) {
      if (path.is_string()) names.insert("module/" + path.get<std::string>());
    }
  }
  AddPictures(module["frames"], names);
  if (module.contains("layerFiles")) {
    for (const Json& file : module["layerFiles"]) {
      if (file.is_object() && file.contains("layer")) {
        AddPictures(Json::array({file["layer"]}), names);
      }
    }
  }
  return names;
}

std::set<std::string> OwnNames(const std::string& folder) {
  try {
    std::set<std::string> names = NamesIn(ModuleOf(folder));
    const std::vector<std::string> plain(names.begin(), names.end());
    for (const std::string& name : plain) names.insert(name + ".js");
    return names;
  } catch (const Json::exception&) {
    return {};  // a module.json of somebody else's
  }
}

}  // namespace

std::string OtherThingIn(const std::string& folder) {
  const std::set<std::string> own = OwnNames(folder);
  std::vector<std::string> others;
  if (own.empty()) {  // however much there is, its first entries will do
    for (const auto& entry : fs::directory_iterator(folder)) {
      others.push_back(entry.path().filename().string());
    }
    return others.empty() ? "" : *std::min_element(others.begin(), others.end());
  }
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).generic_string();
    const bool folderOfOurs = fs::is_directory(entry.symlink_status()) && [&] {
      const auto after = own.lower_bound(name + "/");
      return after != own.end() && after->rfind(name + "/", 0) == 0;
    }();
    if (!folderOfOurs && own.count(name) == 0) others.push_back(name);
  }
  if (others.empty()) return {};
  return *std::min_element(others.begin(), others.end());
}

}  // namespace brelmon::publish
