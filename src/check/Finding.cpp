// SPDX-License-Identifier: GPL-2.0-or-later
// A finding as one line of text.
#include "check/Finding.h"

#include <algorithm>

#include "platform/number.h"

namespace brelmon {

Text ToLine(const Finding& finding) {
  Text line = finding.File + u":" + GeneralText(finding.Line) + u": " + finding.Wrong + u"; " +
              finding.Then + u"; " + finding.Mended;
  // What was read may hold anything; a finding stays on its line.
  std::replace_if(
      line.begin(), line.end(), [](char16_t unit) { return unit < u' '; }, u' ');
  return line;
}

bool WouldFail(const std::vector<Finding>& findings) {
  return std::any_of(findings.begin(), findings.end(),
                     [](const Finding& each) { return each.Grade == Severity::Fails; });
}

}  // namespace brelmon
