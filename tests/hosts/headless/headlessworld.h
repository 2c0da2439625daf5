// SPDX-License-Identifier: GPL-2.0-or-later
// A case's world in the headless host, over a copy of its module.
#pragma once

#include <filesystem>

#include "hosts/headless/headlesshost.h"
#include "tests/contract/suite.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::contract {

class HeadlessWorld : public World {
 public:
  explicit HeadlessWorld(const std::string& module) : host_(CopyOf(module)) {}
  Ref<IApplication> Application() override { return host_.Application(); }
  Ref<IMxDocument> Document() override { return host_.Document(); }
  IHostObjects& Objects() override { return *host_.HostServices().objects; }
  IFileSystem& Files() override { return *host_.HostServices().files; }
  void SetTab(const Text& name) override { EXPECT_TRUE(host_.SetTab(name)); }
  void Pick(const std::vector<Ref<IObject>>& items) override { host_.Pick(items); }
  void SetGraphics(const std::vector<std::string>& wkts) override { host_.SetGraphics(wkts); }

 private:
  /// Cases may leave files in their module.
  std::string CopyOf(const std::filesystem::path& module) {
    const auto source = BRELMON_SOURCE_DIR / module.parent_path();
    std::filesystem::copy(source, folder_.Path("module"), std::filesystem::copy_options::recursive);
    return folder_.Path("module/" + module.filename().string());
  }

  TempFolder folder_;
  headless::HeadlessHost host_;
};

}  // namespace brelmon::contract
