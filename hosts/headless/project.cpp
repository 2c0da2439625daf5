// SPDX-License-Identifier: GPL-2.0-or-later
// Finding and reading map documents.
#include "hosts/headless/project.h"

#include <cpl_string.h>

#include <algorithm>
#include <filesystem>
#include <pugixml.hpp>
#include <stdexcept>

#include "hosts/common/paths.h"
#include "hosts/headless/projectxml.h"

namespace brelmon::headless {
namespace {

/// Groups within groups; who nests deeper wants to see something break.
constexpr int kDeepest = 200;

[[noreturn]] void Refuse(const std::string& file, const std::string& reason) {
  throw std::runtime_error(file + ": " + reason);
}

bool HasExtension(const std::string& name, const std::string& extension) {
  if (name.size() <= extension.size()) return false;
  return EQUAL(name.c_str() + name.size() - extension.size(), extension.c_str());
}

bool IsMapDocument(const std::string& name) {
  return HasExtension(name, ".qgs") || HasExtension(name, ".qgz");
}

std::string FolderOf(const std::string& file) {
  return std::filesystem::path(file).parent_path().string();
}

int LineAt(const std::string& text, std::ptrdiff_t offset) {
  const auto end = text.begin() + std::clamp<std::ptrdiff_t>(offset, 0, std::ssize(text));
  return 1 + static_cast<int>(std::count(text.begin(), end, '\n'));
}

std::string ReferenceSystem(const pugi::xml_node& parent) {
  const pugi::xml_node system = parent.child("spatialrefsys");
  const std::string authority = system.child_value("authid");
  // Codes of a user's own mean nothing elsewhere.
  if (!authority.empty() && authority.rfind("USER:", 0) != 0) return authority;
  const std::string wkt = system.child_value("wkt");
  return wkt.empty() ? system.child_value("proj4") : wkt;
}

/// In either form that a custom property has been written in; empty if it isn't there.
std::string CustomProperty(const pugi::xml_node& of, const char* name) {
  const pugi::xml_node properties = of.child("customproperties");
  const pugi::xml_node now =
      properties.child("Option").find_child_by_attribute("Option", "name", name);
  const pugi::xml_node before = properties.find_child_by_attribute("property", "key", name);
  return (now ? now : before).attribute("value").as_string();
}

LayerDefinition ReadLayer(const pugi::xml_node& xml) {
  LayerDefinition layer;
  layer.name = xml.child_value("layername");
  layer.type = xml.attribute("type").as_string("vector");
  layer.data.provider = xml.child_value("provider");
  layer.data.encoding = xml.child("provider").attribute("encoding").as_string();
  layer.data.dataSource = xml.child_value("datasource");
  layer.data.subset = xml.child_value("subset");
  layer.data.filterExpression = CustomProperty(xml, "brelmon/filterExpression");
  layer.data.filter = CustomProperty(xml, "brelmon/filter");
  layer.crs = ReferenceSystem(xml.child("srs"));
  layer.hasGeometry = std::string(xml.attribute("geometry").as_string()) != "No geometry";
  for (const pugi::xml_node& alias : xml.child("aliases").children("alias")) {
    const std::string name = alias.attribute("name").as_string();
    if (!name.empty()) layer.aliases[alias.attribute("field").as_string()] = name;
  }
  const pugi::xml_node columns = xml.child("attributetableconfig").child("columns");
  for (const pugi::xml_node& column : columns.children("column")) {
    const bool field = std::string(column.attribute("type").as_string("field")) == "field";
    if (field && column.attribute("hidden").as_bool()) {
      layer.hiddenFields.insert(column.attribute("name").as_string());
    }
  }
  return layer;
}

TreeNode ReadNode(const std::string& file, const pugi::xml_node& xml, int depth = 0) {
  if (depth > kDeepest) {
    Refuse(file, "its groups are nested more than " + std::to_string(kDeepest) + " deep");
  }
  TreeNode node;
  node.name = xml.attribute("name").as_string();
  node.layerId = xml.attribute("id").as_string();
  node.checked = std::string(xml.attribute("checked").as_string("Qt::Checked")) != "Qt::Unchecked";
  node.expanded = xml.attribute("expanded").as_bool(true);
  node.dataFrame = node.layerId.empty() && CustomProperty(xml, "brelmon/dataFrame") == "true";
  for (const pugi::xml_node& child : xml.children()) {
    const std::string tag = child.name();
    if (tag == "layer-tree-group" || tag == "layer-tree-layer") {
      node.children.push_back(ReadNode(file, child, depth + 1));
    }
  }
  return node;
}

std::optional<std::array<double, 4>> ReadExtent(const pugi::xml_node& canvas) {
  const pugi::xml_node extent = canvas.child("extent");
  if (!extent) return {};
  std::array<double, 4> box{};
  const std::array<const char*, 4> names = {"xmin", "ymin", "xmax", "ymax"};
  for (std::size_t i = 0; i < 4; ++i) box[i] = extent.child(names[i]).text().as_double();
  return box;
}

}  // namespace

std::string FindMapDocument(const std::string& module) {
  std::error_code error;
  const std::string path = host::TrueCase(std::filesystem::absolute(module, error).string());
  if (host::FileExists(path)) {
    if (!IsMapDocument(path)) Refuse(module, "it is no map document (.qgs or .qgz)");
    return path;
  }
  if (!host::FolderExists(path)) Refuse(module, "there is no such file or folder");
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(path, error)) {
    const std::string name = entry.path().filename().string();
    if (IsMapDocument(name) && host::FileExists(entry.path().string())) found.push_back(name);
  }
  if (error) Refuse(module, "the folder can't be read");
  if (found.empty()) Refuse(module, "the folder holds no map document (.qgs or .qgz)");
  if (found.size() > 1) {
    std::sort(found.begin(), found.end());
    Refuse(module, "the folder holds several map documents (" + found[0] + ", " + found[1] +
                       (found.size() > 2 ? ", ..." : "") + "); name one of them");
  }
  return path + "/" + found[0];
}

Project ReadProject(const std::string& file) {
  pugi::xml_document document;
  const std::string text = ReadProjectXml(file, document);
  const pugi::xml_node root = document.document_element();
  Project project;
  project.file = file;
  project.folder = FolderOf(file);
  project.root = ReadNode(file, root.child("layer-tree-group"));
  for (const char* section : {"projectlayers", "maplayers"}) {
    for (const pugi::xml_node& layer : root.child(section).children("maplayer")) {
      LayerDefinition& read = project.layers[layer.child_value("id")] = ReadLayer(layer);
      read.sourceLine = LineAt(text, layer.child("datasource").offset_debug());
    }
  }
  project.crs = ReferenceSystem(root.child("projectCrs"));
  project.extent = ReadExtent(root.child("mapcanvas"));
  if (project.crs.empty()) {
    project.crs = ReferenceSystem(root.child("mapcanvas").child("destinationsrs"));
  }
  return project;
}

std::string WrittenPath(const LayerDefinition& layer) {
  const std::string& source = layer.data.dataSource;
  if (layer.data.provider == "delimitedtext") {
    const std::size_t from = source.starts_with("file:///") ? 7
                             : source.starts_with("file:")  ? 5
                                                            : 0;
    return source.substr(from, source.find('?') - from);
  }
  if (layer.data.provider == "spatialite") {
    const auto from = source.find("dbname='");
    return from == source.npos ? ""
                               : source.substr(from + 8, source.find('\'', from + 8) - from - 8);
  }
  const bool files =
      layer.data.provider == "ogr" || layer.data.provider == "gdal" || layer.data.provider.empty();
  const std::string path = source.substr(0, source.find('|'));
  // "NETCDF:..." and "https://..." are names of GDAL's own or of a server, "C:..." is a drive.
  const auto colon = path.find(':');
  return !files || path.starts_with("/vsi") || (colon != path.npos && colon > 1) ? "" : path;
}

std::vector<TreeNode> DataFrames(const Project& project) {
  std::vector<TreeNode> frames;
  for (const TreeNode& node : project.root.children) {
    if (node.dataFrame) frames.push_back(node);
  }
  if (frames.empty()) {
    frames.push_back(project.root);
    frames[0].name = "Layers";
  }
  return frames;
}

}  // namespace brelmon::headless
