// SPDX-License-Identifier: GPL-2.0-or-later
// Notes in this system's paths.
#include "cli/heldshell.h"

#include "hosts/common/paths.h"
#include "hosts/common/shell.h"

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
  if (opens_) {
    real_.Execute(file, directory, showMode);
  } else {
    host::TargetOf(file, directory);  // fails where it would not be opened
  }
  asked_.push_back(Written(path + file));
}

void HeldShell::Run(const Text& program) {
  if (opens_) real_.Run(program);
  asked_.push_back(Written(program));
}

}  // namespace brelmon::cli
