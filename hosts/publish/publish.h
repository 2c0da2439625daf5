// SPDX-License-Identifier: GPL-2.0-or-later
// A module as a folder of static files that a browser opens.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace brelmon::publish {

struct Request {
  std::string document;                // system path of the map document
  std::string folder;                  // that is to be written
  std::string page;                    // folder that holds the page and its program
  bool single = false;                 // for opening without a web server
  std::function<bool()> stopped = {};  // asked now and then; true ends it as a failure does
};

struct Published {
  std::int64_t tables = 0, rows = 0, pictures = 0, media = 0;
  /// What a page can't do with this module, and what was left out; UTF-8.
  std::vector<std::string> report;
};

/// Writes the folder whole or not at all, under the process's services. Throws std::runtime_error
/// with the reason for a folder that holds other things, a page that isn't there and what can't be
/// written, and fails as reading the data does.
Published Publish(const Request& request);

}  // namespace brelmon::publish
