// SPDX-License-Identifier: GPL-2.0-or-later
// Notes in this system's paths.
#include "cli/heldshell.h"

#include "hosts/common/paths.h"

namespace brelmon::cli {
namespace {

std::string Written(const Text& path) {
  const auto system = host::Paths().ToSystem(path);
  return system ? *system : ToUtf8(path);
}

}  // namespace

void HeldShell::Execute(const Text& file, const Text& directory, int showMode) {
  Text path = directory;
  if (!path.empty() && path.back() != u'\\') path += u'\\';
  asked_.push_back(Written(path + file));
  if (opens_) real_.Execute(file, directory, showMode);
}

void HeldShell::Run(const Text& program) {
  asked_.push_back(Written(program));
  if (opens_) real_.Run(program);
}

}  // namespace brelmon::cli
