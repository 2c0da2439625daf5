// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the headless host.
#include "tests/contract/contract.h"

#include <gtest/gtest.h>

#include "hosts/headless/headlesshost.h"

namespace brelmon::contract {
namespace {

class HeadlessWorld : public World {
 public:
  Ref<IApplication> Application() override { return host_.Application(); }
  Ref<IMxDocument> Document() override { return host_.Document(); }
  IHostObjects& Objects() override { return *host_.HostServices().objects; }
  IFileSystem& Files() override { return *host_.HostServices().files; }
  void SetTab(const Text& name) override { EXPECT_TRUE(host_.SetTab(name)); }
  void Pick(const std::vector<Ref<IObject>>& items) override { host_.Pick(items); }
  void SetGraphics(const std::vector<std::string>& wkts) override { host_.SetGraphics(wkts); }

 private:
  headless::HeadlessHost host_{BRELMON_SOURCE_DIR "/samples/earth"};
};

class Contract : public testing::TestWithParam<Case> {};

TEST_P(Contract, Holds) {
  HeadlessWorld world;
  try {
    GetParam().run(world);
  } catch (const std::exception& reason) {
    FAIL() << reason.what();
  }
}

std::string NameOf(const testing::TestParamInfo<Case>& test) {
  std::string name = test.param.name;
  for (char& letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) letter = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Headless, Contract, testing::ValuesIn(AllCases()), NameOf);

}  // namespace
}  // namespace brelmon::contract
