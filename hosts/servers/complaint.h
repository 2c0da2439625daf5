// SPDX-License-Identifier: GPL-2.0-or-later
// What a server complains of, as failures.
#pragma once

#include <string>

#include "hosts/servers/connection.h"
#include "platform/failure.h"

namespace brelmon::servers {

struct Complaint {
  std::string Code;  // five characters of the SQL standard; empty where the connection broke
  std::string Reason;
};

/// `result` may be null.
Complaint ComplaintOf(pg_conn* connection, pg_result* result);

/// A number that a server can't hold.
class OutOfRange : public Failure {
 public:
  using Failure::Failure;
};

[[noreturn]] void FailAs(const Complaint& complaint, const Address& address, Blame blame);

std::string FirstLine(const std::string& text);

}  // namespace brelmon::servers
