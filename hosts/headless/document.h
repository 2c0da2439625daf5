// SPDX-License-Identifier: GPL-2.0-or-later
// A project as the open map document.
#pragma once

#include "hosts/document/document.h"
#include "hosts/headless/project.h"

namespace brelmon::headless {

/// Unset where the host has no command of that identifier.
using CommandFinder = std::function<Ref<ICommandItem>(const Text& identifier)>;

/// Makes every layer of the project.
Ref<IMxDocument> OpenDocument(const Project& project, CommandFinder commands);

}  // namespace brelmon::headless
