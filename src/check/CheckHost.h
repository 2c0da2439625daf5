// SPDX-License-Identifier: GPL-2.0-or-later
// What the module check asks of its host beyond what the tools do.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/map.h"

namespace brelmon {

/// A layer's data source, as a map document or layer file writes it.
struct WrittenSource {
  Text Layer;  // its name
  Text Path;   // of the file or folder in it
  Text Whole;  // all of it
  std::int32_t Line = 1;
};

/// What a query mentions.
struct QueryWords {
  std::vector<Text> Fields;  // names of fields, as they are spelt between their marks
  Text Fault;                // why it can't stand by itself; empty where nothing is wrong
};

class ICheckHost {
 public:
  virtual ~ICheckHost() = default;
  /// The layer inside a layer file; fails where the file can't be read as one layer.
  virtual Ref<ILayer> OpenLayerFile(const Text& path) = 0;
  /// The data sources in a map document or layer file that are files or folders; fails where it
  /// can't be read.
  virtual std::vector<WrittenSource> SourcesIn(const Text& path) = 0;
  /// Files and folders in a folder, as they are spelt on the disk; none where it can't be read.
  virtual std::vector<Text> NamesIn(const Text& folder) = 0;
  virtual QueryWords WordsOf(const Text& query) = 0;
  /// Why a layer's or table's data isn't opened; empty where nothing is known of it.
  virtual Text ProblemOf(const Ref<IObject>& item) = 0;
  /// Why neither file nor address is handed to its default program; empty where it would be.
  virtual Text RefusalToOpen(const Text& location) = 0;
};

}  // namespace brelmon
