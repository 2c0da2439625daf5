// SPDX-License-Identifier: GPL-2.0-or-later
// Where a table on a server is, as a project writes it.
#pragma once

#include <string>

namespace brelmon::servers {

/// UTF-8; empty where the project says nothing and the user's environment or services decide.
struct Address {
  std::string Service, Host, Port, Database, User, Password, SslMode;
  std::string Schema, Table, GeometryColumn, KeyColumn;
  int Srid = 0;          // of the shapes; 0 where the project tells none
  std::string Filter;    // the layer's
  std::string Problem;   // why there is nothing to be opened; else empty
  bool Trusted = false;  // the user has connected to it already: no leave is asked

  /// The server and its database, for messages: neither user nor password are in it.
  std::string Shown() const;
};

/// `service='x' host=h dbname='d' key='id' table="s"."t" (geom) sql=...`
Address ReadAddress(const std::string& dataSource);

}  // namespace brelmon::servers
