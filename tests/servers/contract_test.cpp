// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the headless host, for tables on servers.
#include "tests/hosts/headless/headlessworld.h"

namespace brelmon::contract {
namespace {

class Contract : public testing::TestWithParam<Case> {};

TEST_P(Contract, Holds) { ExpectHolds<HeadlessWorld>(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Servers, Contract, testing::ValuesIn(ServerCases()), NameOf);

}  // namespace
}  // namespace brelmon::contract
