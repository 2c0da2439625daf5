// SPDX-License-Identifier: GPL-2.0-or-later
// Groups that a server makes itself, with figures as good as those that are made here.
#pragma once

#include <functional>

#include "hosts/columns/dissolvegroups.h"
#include "hosts/servers/connection.h"
#include "hosts/servers/tablefacts.h"

namespace brelmon::servers {

/// The query for a list of expressions, grouped by the first of them.
using GroupQuery = std::function<std::string(const std::string& select)>;

/// As columns::IRowSource::Group. False too where the server's arithmetic isn't sure to come to the
/// same twelve digits as ours.
bool GroupOnServer(const Address& address, const TableFacts& facts, std::size_t key,
                   const std::vector<columns::TalliedField>& fields, Blame blame,
                   const GroupQuery& query, columns::DissolveGroups& groups);

}  // namespace brelmon::servers
