// SPDX-License-Identifier: GPL-2.0-or-later
// What module.json says, as plain data. Its keys are told in README.md.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "hosts/columns/codepage.h"
#include "hosts/web/columntable.h"
#include "platform/value.h"

namespace brelmon::web {

struct SourceFacts {
  std::string id;
  std::string kind, problem, file;
  std::string workspace, path;  // Windows paths
  std::string table;
  bool ownSql = false;  // its clauses are SQLite's
  bool hasShapes = false;
  Bounds extent;
  columns::CodePage encoding;
  std::vector<columns::Field> fields;
};

/// One class of a layer's symbols: a value, or a range with both bounds.
struct SymbolClass {
  bool other = false;  // takes what no class before it takes
  bool visible = true;
  std::string value;  // as general text
  double from = 0, to = 0;
};

struct Symbols {
  enum class Type { Simple, Categorized, Graduated };
  Type type = Type::Simple;
  std::string field;
  std::vector<SymbolClass> classes;
  std::string json;  // as the page draws them
};

struct ModuleItem {
  std::string kind, name;  // kind: group, layer, table, raster, other
  bool visible = true, expanded = true;
  std::vector<ModuleItem> items;  // of a group
  std::string source, definition;
  std::string attribution;  // who is to be named beside it
  std::map<std::string, std::string> aliases;
  std::set<std::string> hidden;
  Symbols symbols;
  std::string picture;  // of a raster
  Bounds extent;
  double opacity = 1;
  bool valid = true;
};

struct LayerFile {
  std::string path;  // in the module
  std::optional<ModuleItem> layer;
  std::string problem;
};

struct Module {
  std::string title, document, units;
  Bounds extent;
  std::vector<SourceFacts> sources;
  std::vector<ModuleItem> frames;
  std::vector<LayerFile> layerFiles;
  std::vector<std::string> texts, media;
};

/// Throws std::runtime_error with the reason for a text that this host can't read.
Module ReadModule(const std::string& json);

}  // namespace brelmon::web
