// SPDX-License-Identifier: GPL-2.0-or-later
// Layer files, data sources, names on the disk, words of queries.
#include "cli/checkhost.h"

#include <algorithm>
#include <filesystem>

#include "hosts/columns/querytokens.h"
#include "hosts/common/paths.h"
#include "hosts/common/shell.h"
#include "hosts/headless/problem.h"
#include "hosts/headless/project.h"
#include "platform/windows.h"

namespace brelmon::cli {
namespace {

std::string SystemPath(const Text& path) {
  const auto system = host::Paths().ToSystem(path);
  return system ? *system : ToUtf8(path);
}

}  // namespace

CheckedModule CheckHost::Module() {
  const Services& services = host_.HostServices();
  CheckedModule module;
  module.DocumentPath = host::Paths().ToWindows(host_.MapDocument());
  module.Document = host_.Document();
  module.Files = services.files;
  module.Locale = services.locale;
  module.Host = this;
  return module;
}

Ref<ILayer> CheckHost::OpenLayerFile(const Text& path) {
  const auto file = host_.HostServices().objects->NewGxLayer();
  file.As<IGxFile>()->SetPath(path);
  return file->Layer();
}

std::vector<WrittenSource> CheckHost::SourcesIn(const Text& path) {
  std::vector<WrittenSource> sources;
  for (const auto& [id, layer] : headless::ReadProject(SystemPath(path)).layers) {
    const std::string file = headless::WrittenPath(layer);
    if (file.empty()) continue;
    sources.push_back({FromUtf8(layer.name), FromUtf8(file), FromUtf8(layer.data.dataSource),
                       static_cast<std::int32_t>(layer.sourceLine)});
  }
  return sources;
}

std::vector<Text> CheckHost::NamesIn(const Text& folder) {
  std::vector<Text> names;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(SystemPath(folder), ignored)) {
    names.push_back(FromUtf8(entry.path().filename().string()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

QueryWords CheckHost::WordsOf(const Text& query) {
  const columns::ClauseNames names = columns::NamesIn(query);
  return {names.fields, FromUtf8(names.fault)};
}

Text CheckHost::ProblemOf(const Ref<IObject>& item) {
  const auto known = item.TryAs<headless::IProblem>();
  return known ? FromUtf8(known->Problem()) : Text();
}

Text CheckHost::RefusalToOpen(const Text& location) {
  try {
    host::TargetOf(location, {});
  } catch (const Failure& refusal) {
    return refusal.Description;
  }
  return {};
}

}  // namespace brelmon::cli
