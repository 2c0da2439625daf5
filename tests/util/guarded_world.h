// SPDX-License-Identifier: GPL-2.0-or-later
// A fake world whose error dialog goes with it.
#pragma once

#include "frame/errorhandling.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {

struct GuardedWorld : FakeWorld {
  ~GuardedWorld() { ErrorHandling::Reset(); }
};

}  // namespace brelmon::test
