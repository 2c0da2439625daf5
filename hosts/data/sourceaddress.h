// SPDX-License-Identifier: GPL-2.0-or-later
// Where GDAL finds the data that a project's data source names.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/servers/address.h"

namespace brelmon::data {

/// A vector layer's data as a project tells of them. All texts are UTF-8.
struct SourceText {
  std::string provider;    // "ogr", "delimitedtext", ...
  std::string dataSource;  // as the provider writes it
  std::string subset;      // where it stands apart from the data source
  std::string encoding;
  // Where the subset is in another language: it, and the clause that it stands for.
  std::string filterExpression = {}, filter = {};
};

struct SourceAddress {
  std::string path;      // file or folder, as GDAL opens it; else words for it
  std::string layer;     // its name inside; empty for the first
  int layerNumber = -1;  // in place of a name
  std::string subset;
  std::string encoding;                                 // empty: as the source says
  std::vector<std::string> drivers;                     // that may open it; empty for all
  std::vector<std::string> openOptions;                 // NAME=VALUE
  std::string problem;                                  // why it can't be opened at all; else empty
  std::shared_ptr<const servers::Address> server = {};  // of a table on a server; else null
};

/// Relative paths count from `folder`; a file that isn't there in the case given is looked for
/// regardless of case.
SourceAddress AddressOf(const SourceText& layer, const std::string& folder);

}  // namespace brelmon::data
