// SPDX-License-Identifier: GPL-2.0-or-later
// What a browser makes of a medium.
#pragma once

#include <string>

namespace brelmon::publish {

/// What of a file a browser can't do and what it does instead; empty where it shows or plays it.
/// `name` is its name in the media list.
std::string FaultOfFile(const std::string& systemPath, const std::string& name);
/// The same for a web address.
std::string FaultOfAddress(const std::string& address);

}  // namespace brelmon::publish
