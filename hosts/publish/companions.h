// SPDX-License-Identifier: GPL-2.0-or-later
// What a module brings along besides its map: lists, layer files, media.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "hosts/publish/modulefolder.h"
#include "hosts/publish/report.h"
#include "platform/text.h"

namespace brelmon::publish {

/// Paths in the module, with forward slashes, in the case in which the files stand there.
struct Companions {
  std::set<std::string> texts, media, layerFiles;
  struct Query {
    std::string name;
    Text text;
  };
  std::vector<Query> queries;
};

/// Read with the tools' own readers under the process's services. What is missing or lies outside
/// the module is left out and told, and so is what a browser can't open.
Companions CompanionsOf(const ModuleFolder& module, Report& report);

}  // namespace brelmon::publish
