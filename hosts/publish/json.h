// SPDX-License-Identifier: GPL-2.0-or-later
// JSON with its keys in the order in which they were put.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace brelmon::publish {

using Json = nlohmann::ordered_json;

/// What is no UTF-8 is replaced.
inline std::string TextOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace brelmon::publish
