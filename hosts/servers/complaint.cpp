// SPDX-License-Identifier: GPL-2.0-or-later
// From classes of codes to numbers.
#include "hosts/servers/complaint.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <cctype>

#include "hosts/common/hostfailure.h"

namespace brelmon::servers {
namespace {

bool IsOfClass(const std::string& code, const char* start) { return code.rfind(start, 0) == 0; }

template <std::size_t N>
bool IsOneOf(const std::string& code, const std::array<const char*, N>& starts) {
  return std::any_of(starts.begin(), starts.end(),
                     [&](const char* start) { return IsOfClass(code, start); });
}

/// What the text of a query may be at fault for, and what its evaluation.
constexpr std::array kOfText = {"42", "22", "0A", "21", "25006", "54", "3F", "44", "P0"};
constexpr std::array kOfValues = {"22", "21", "25006", "54001"};

}  // namespace

std::string FirstLine(const std::string& text) {
  const std::string line = text.substr(0, text.find('\n'));
  return line.empty() ? "the server gave no reason" : line;
}

Complaint ComplaintOf(pg_conn* connection, pg_result* result) {
  Complaint complaint;
  const char* code = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
  const char* reason = result ? PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
  if (code) complaint.Code = code;
  complaint.Reason = FirstLine(reason ? reason : PQerrorMessage(connection));
  return complaint;
}

void FailAs(const Complaint& complaint, const Address& address, Blame blame) {
  const std::string& code = complaint.Code;
  const std::string where = address.Shown();
  const bool refused = (blame == Blame::QueryText && IsOneOf(code, kOfText)) ||
                       (blame == Blame::QueryValues && IsOneOf(code, kOfValues));
  std::int32_t number = failure::kDeviceIo;
  std::string reason = "Reading " + where + " broke off: " + complaint.Reason + ".";
  if (code == "42501") {
    number = failure::kPermissionDenied;
    reason = complaint.Reason + " (" + where + ").";
    reason[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(reason[0])));
  } else if (refused) {
    number = failure::kRefused;
    reason = "The query was refused: " + complaint.Reason + ".";
  } else if (code.empty() || IsOfClass(code, "57P")) {
    reason = "The connection to " + where + " was lost: " + complaint.Reason + ".";
  }
  if (code == "22003") throw OutOfRange(number, Text(host::kFailureSource), FromUtf8(reason));
  host::Fail(number, reason);
}

}  // namespace brelmon::servers
