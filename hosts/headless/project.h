// SPDX-License-Identifier: GPL-2.0-or-later
// What a QGIS project file or layer-definition file says, as plain data.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "hosts/data/sourceaddress.h"

namespace brelmon::headless {

/// A layer of any kind, as it is written down. All texts are UTF-8.
struct LayerDefinition {
  std::string name;
  std::string type;  // "vector", "raster", ...
  data::SourceText data;
  int sourceLine = 1;  // of the data source in the file, unpacked
  std::string crs;     // an authority's code or a definition; empty where none is told
  bool hasGeometry = true;
  std::map<std::string, std::string> aliases;  // by field name
  std::set<std::string> hiddenFields;
};

/// A group, or a layer by its id.
struct TreeNode {
  std::string name;
  std::string layerId;  // empty for a group
  bool checked = true;
  bool expanded = true;
  bool dataFrame = false;
  std::vector<TreeNode> children;
};

struct Project {
  std::string file;    // system path
  std::string folder;  // that data sources count from
  TreeNode root;
  std::map<std::string, LayerDefinition> layers;  // by id
  std::string crs;
  std::optional<std::array<double, 4>> extent;  // xMin, yMin, xMax, yMax
};

/// The one map document that `module` is or holds, as a system path in its true case. Throws
/// std::runtime_error, with a reason to be shown, where there is none or there are several.
std::string FindMapDocument(const std::string& module);

/// Reads a .qgs or .qgz file; a .qlr file has neither reference system nor extent. Throws
/// std::runtime_error with the file's name and the reason.
Project ReadProject(const std::string& file);

/// The file of a data source as it is written there: a relative or absolute path. Empty where the
/// source is none: on a server, in memory.
std::string WrittenPath(const LayerDefinition& layer);

/// The top-level groups that are data frames, or one frame "Layers" over the whole tree.
std::vector<TreeNode> DataFrames(const Project& project);

}  // namespace brelmon::headless
