// SPDX-License-Identifier: GPL-2.0-or-later
// Telling a published folder from any other.
#pragma once

#include <array>
#include <string>

namespace brelmon::publish {

/// The page, the same for every module.
inline constexpr std::array kPageFiles = {"index.html", "page.js", "page.css", "brelmon.js",
                                          "brelmon.wasm"};
inline constexpr const char* kModuleFile = "module.json";

/// The first entry of a folder that no publication put there, its path inside; empty where there is
/// none. What a publication holds stands in its module.json.
std::string OtherThingIn(const std::string& folder);

}  // namespace brelmon::publish
