// SPDX-License-Identifier: GPL-2.0-or-later
// One thing in a module that the tools would skip, stop at or misread.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text.h"

namespace brelmon {

enum class Severity {
  Note,   // worth knowing; nothing goes wrong in class
  Fails,  // something in class would stop, be missing or be wrong
};

struct Finding {
  Text File;              // from the module's folder on
  std::int32_t Line = 1;  // as an editor counts; 1 where there is none to tell
  Severity Grade = Severity::Fails;
  Text Wrong, Then, Mended;
};

/// "file:line: what is wrong; what the tools will do; the line mended", without a line end.
Text ToLine(const Finding& finding);
/// Whether any of them is graded Fails.
bool WouldFail(const std::vector<Finding>& findings);

}  // namespace brelmon
