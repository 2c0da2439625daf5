// SPDX-License-Identifier: GPL-2.0-or-later
// The throw-away servers, from a test.
#pragma once

#include <string>

#include "tests/hosts/headless/module.h"

namespace brelmon::servers::test {

/// Does something to one of the servers: "up", "down", "kill".
void Cluster(const std::string& action, const std::string& name);

/// What psql prints for a statement, without its last line end. The server is alone, one, other or
/// faulty.
std::string Psql(const std::string& server, const std::string& statement);

/// A layer's data source on a server, escaped for a project. `more` goes before the table.
std::string Source(const std::string& server, const std::string& table,
                   const std::string& more = {}, const std::string& filter = {});

/// A table of a project, under the name of the table on the server.
headless::LayerXml TableOn(const std::string& server, const std::string& table,
                           const std::string& more = {}, const std::string& filter = {});

/// A module of such tables, for the program.
void WriteModule(const TempFolder& folder, const std::vector<headless::LayerXml>& layers);

}  // namespace brelmon::servers::test
