// SPDX-License-Identifier: GPL-2.0-or-later
// Whom this program may call: a module names servers, and may be a stranger's.
#pragma once

#include <string>

#include "hosts/servers/address.h"

namespace brelmon::servers {

/// For the rest of the process.
void AllowServer(const std::string& host);

/// Why the server isn't called; empty for a socket of this computer, a service of the user's own
/// and a host that was allowed, here or by a line of the file `servers` in the folder of the user's
/// settings.
std::string RefusalToCall(const Address& address);

}  // namespace brelmon::servers
