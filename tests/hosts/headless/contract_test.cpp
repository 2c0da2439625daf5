// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the headless host.
#include "tests/hosts/headless/headlessworld.h"

namespace brelmon::contract {
namespace {

class Contract : public testing::TestWithParam<Case> {};

TEST_P(Contract, Holds) { ExpectHolds<HeadlessWorld>(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Headless, Contract, testing::ValuesIn(AllCases()), NameOf);

}  // namespace
}  // namespace brelmon::contract
