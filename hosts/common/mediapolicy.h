// SPDX-License-Identifier: GPL-2.0-or-later
// What of a module is handed to the desktop: what a class looks at, and nothing that runs.
#pragma once

#include <string>

namespace brelmon::host {

/// Why neither file nor address is opened, as a sentence; empty for one that may be: a picture, a
/// film, a document, a table, slides, a globe file, a page, by its ending and by that of the file
/// that a link leads to; an address of the web or of a mailbox. `target` is an absolute system path
/// or an address. A file that isn't there is judged by its name.
std::string RefusalToOpen(const std::string& target);

}  // namespace brelmon::host
