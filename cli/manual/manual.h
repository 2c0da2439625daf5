// SPDX-License-Identifier: GPL-2.0-or-later
// What is written of the command line beside the program: the manual's page, and completion.
#pragma once

#include <string>

#include "cli/programtext.h"

namespace brelmon::cli {

/// brelmon(1), for man. `version` stands at its foot.
std::string ManualPage(const ActionText& program, const std::string& version);

std::string BashCompletion(const ActionText& program);
std::string ZshCompletion(const ActionText& program);

}  // namespace brelmon::cli
