// SPDX-License-Identifier: GPL-2.0-or-later
// Opening files and web addresses with the system's default program, and running programs.
#pragma once

#include <functional>
#include <memory>

#include "hosts/common/paths.h"
#include "platform/services.h"

namespace brelmon::host {

/// What would be opened for a file, relative or not, and a directory: a system path, or a web
/// address. The file: URL of a path on a drive is that path. Fails with 0x80004005 and the reason
/// for what RefusalToOpen tells of.
std::string TargetOf(const Text& file, const Text& directory, const Paths& paths = Paths());

/// A program that was started to open something, and that goes on by itself.
class Opening {
 public:
  virtual ~Opening() = default;
  /// Can be read from once the program has ended, or -1; valid as long as this object.
  virtual int EndDescriptor() const = 0;
  /// Waits for the end, not longer than that; whether it has come.
  virtual bool EndsWithin(int milliseconds) = 0;
  /// For a user who waits for something to open, and nothing does: a sentence. Empty while the
  /// program runs, and for one that ended well, or after it had something open for a while.
  virtual Text Complaint() = 0;
};
using OpeningWatch = std::function<void(std::unique_ptr<Opening>)>;
/// The title of the box that tells of a complaint.
inline constexpr TextView kNotOpenedTitle = u"Nothing Was Opened:";

/// Opens through xdg-open, or through the program that the environment's BRELMON_OPENER names:
/// that one is given the system path (a web address as it is) and the directory's. An address
/// without a scheme (`example.org/page`, in no directory) is one of the web; of a `.url` shortcut
/// the address in it is opened, and one that names no web address fails with 0x80004005. What
/// RefusalToOpen tells of, and what no program can be started for, fails with 0x80004005 too. A
/// program has nothing to read on its standard input, and works in the directory. `watch` is handed
/// each that was started to open something.
std::unique_ptr<IShell> NewShell(OpeningWatch watch = {}, Paths paths = Paths());

}  // namespace brelmon::host
