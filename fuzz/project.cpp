// SPDX-License-Identifier: GPL-2.0-or-later
// Projects and layer definitions: read or refused, and every source has an address.
#include <stdexcept>

#include "fuzz/input.h"
#include "hosts/headless/project.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  const std::string file = fuzz::OnDisk(".qgs", data, size);
  try {
    const headless::Project project = headless::ReadProject(file);
    fuzz::Demand(!headless::DataFrames(project).empty());
    for (const auto& [id, layer] : project.layers) {
      const auto address = data::AddressOf(layer.data, project.folder);
      fuzz::Demand(address.path.find("://") != std::string::npos || !address.problem.empty() ||
                   address.path.empty() || address.path[0] == '/' || address.path[1] == ':');
    }
  } catch (const std::runtime_error&) {
  }
  return 0;
}
