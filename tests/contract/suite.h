// SPDX-License-Identifier: GPL-2.0-or-later
// The contract's cases as a GoogleTest suite over one host's world.
#pragma once

#include <gtest/gtest.h>

#include "tests/contract/contract.h"

namespace brelmon::contract {

inline void PrintTo(const Case& test, std::ostream* out) { *out << test.name; }

inline std::string NameOf(const testing::TestParamInfo<Case>& test) {
  std::string name = test.param.name;
  for (char& letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) letter = '_';
  }
  return name;
}

template <class HostWorld>
void ExpectHolds(const Case& test) {
  HostWorld world(test.module);
  try {
    test.run(world);
  } catch (const std::exception& reason) {
    FAIL() << reason.what();
  }
}

}  // namespace brelmon::contract
