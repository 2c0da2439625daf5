// SPDX-License-Identifier: GPL-2.0-or-later
// Lets the user point to a text file that doesn't lie beside the map document.
#pragma once

#include <optional>

#include "platform/application.h"

namespace brelmon {

/// The chosen file's full path; nothing when the user cancels.
std::optional<Text> BrowseTextFile(const Ref<IApplication>& application, const Text& expectedPath,
                                   const Text& title);

}  // namespace brelmon
