// SPDX-License-Identifier: GPL-2.0-or-later
// Modules of one layer, written where a test wants them.
#pragma once

#include <string>
#include <vector>

#include "tests/hosts/tempfolder.h"

namespace brelmon::hostile {

class HostileModule : public TempFolder {
 public:
  /// With an empty list of media and no QuickLoad.txt, a copy of the probe as data/probe.so, and
  /// the sample's quakes as data/quakes.shp.
  HostileModule();
  /// map.qgs with one layer "it"; texts are written as XML wants them.
  void Layer(const std::string& provider, const std::string& source, const std::string& subset = {},
             const std::string& crs = "EPSG:4326") const;
  /// A database made by these statements.
  void Database(const std::string& name, const std::string& sql) const;
  void CutToHalf(const std::string& name) const;
};

}  // namespace brelmon::hostile
