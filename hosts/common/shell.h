// SPDX-License-Identifier: GPL-2.0-or-later
// Opening files and web addresses with the system's default program, and running programs.
#pragma once

#include <memory>

#include "hosts/common/paths.h"
#include "platform/services.h"

namespace brelmon::host {

/// What would be opened for a file, relative or not, and a directory: a system path, or a web
/// address. The file: URL of a path on a drive is that path. Fails with 0x80004005 and the reason
/// for what RefusalToOpen tells of.
std::string TargetOf(const Text& file, const Text& directory, const Paths& paths = Paths());

/// Opens through xdg-open, or through the program that the environment's BRELMON_OPENER names:
/// that one is given the system path (a web address as it is) and the directory's. An address
/// without a scheme (`example.org/page`, in no directory) is one of the web; of a `.url` shortcut
/// the address in it is opened, and one that names no web address fails with 0x80004005. What
/// RefusalToOpen tells of, and what no program can be started for, fails with 0x80004005 too. A
/// program has nothing to read on its standard input, and works in the directory.
std::unique_ptr<IShell> NewShell(Paths paths = Paths());

}  // namespace brelmon::host
