// SPDX-License-Identifier: GPL-2.0-or-later
// Project files out of archives and off the disk.
#include "hosts/headless/projectxml.h"

#include <cpl_string.h>
#include <cpl_vsi.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <pugixml.hpp>
#include <stdexcept>

namespace brelmon::headless {
namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 30;

[[noreturn]] void Refuse(const std::string& file, const std::string& reason) {
  throw std::runtime_error(file + ": " + reason);
}

bool HasExtension(const std::string& name, const std::string& extension) {
  if (name.size() <= extension.size()) return false;
  return EQUAL(name.c_str() + name.size() - extension.size(), extension.c_str());
}

/// The project inside an archive, or the file itself.
std::string ReadablePath(const std::string& file) {
  if (!HasExtension(file, ".qgz")) return file;
  const std::string archive = "/vsizip/{" + file + "}";
  const CPLStringList names(VSIReadDir(archive.c_str()), TRUE);
  for (int i = 0; i < names.size(); ++i) {
    if (HasExtension(names[i], ".qgs")) return archive + "/" + names[i];
  }
  Refuse(file, "it can't be opened as an archive, or holds no project file");
}

std::string ReadWhole(const std::string& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) Refuse(file, "it is no regular file");
  GByte* data = nullptr;
  vsi_l_offset size = 0;
  if (VSIIngestFile(nullptr, ReadablePath(file).c_str(), &data, &size, kLargestFile) == 0) {
    Refuse(file, "it can't be read");
  }
  const std::unique_ptr<GByte, decltype(&VSIFree)> owner(data, VSIFree);
  return {reinterpret_cast<const char*>(data), static_cast<std::size_t>(size)};
}

}  // namespace

std::string ReadProjectXml(const std::string& file, pugi::xml_document& document) {
  std::string text = ReadWhole(file);
  const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size());
  if (!result) {
    const auto end = text.begin() + std::min<std::ptrdiff_t>(result.offset, std::ssize(text));
    const auto line = 1 + std::count(text.begin(), end, '\n');
    Refuse(file, "line " + std::to_string(line) + ": " + result.description());
  }
  const pugi::xml_node root = document.document_element();
  const std::string tag = root.name();
  if (tag != "qgis" && tag != "qlr") Refuse(file, "it is no QGIS file");
  if (!root.child("layer-tree-group")) Refuse(file, "it has no layer tree");
  return text;
}

}  // namespace brelmon::headless
