// SPDX-License-Identifier: GPL-2.0-or-later
// The headless host as the module check sees it.
#pragma once

#include "check/ModuleCheck.h"
#include "hosts/headless/headlesshost.h"

namespace brelmon::cli {

class CheckHost : public ICheckHost {
 public:
  /// Both must outlive what is made here.
  explicit CheckHost(headless::HeadlessHost& host) : host_(host) {}

  /// The module that the host has open.
  CheckedModule Module();

  Ref<ILayer> OpenLayerFile(const Text& path) override;
  std::vector<WrittenSource> SourcesIn(const Text& path) override;
  std::vector<Text> NamesIn(const Text& folder) override;
  QueryWords WordsOf(const Text& query) override;
  Text ProblemOf(const Ref<IObject>& item) override;
  Text RefusalToOpen(const Text& location) override;

 private:
  headless::HeadlessHost& host_;
};

}  // namespace brelmon::cli
