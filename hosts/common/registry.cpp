// SPDX-License-Identifier: GPL-2.0-or-later
// Keys and values without regard to case.
#include "hosts/common/registry.h"

#include <map>

#include "platform/collection.h"

namespace brelmon::host {
namespace {

class MemoryRegistry : public IRegistry {
 public:
  bool Query(RegistryRoot root, const Text& key, const Text& name, Value& value) override {
    const Keys& keys = roots_[root];
    const auto at = keys.find(key);
    if (at == keys.end()) return false;
    const auto hit = at->second.find(name);
    if (hit == at->second.end()) return false;
    value = hit->second;
    return true;
  }

  void Write(RegistryRoot root, const Text& key, const Text& name, const Text& value) override {
    roots_[root][key][name] = value;
  }

  void DeleteTree(RegistryRoot root, const Text& key) override {
    std::erase_if(roots_[root], [&](const auto& entry) {
      const Text& path = entry.first;
      return EqualNoCase(TextView(path).substr(0, key.size()), key) &&
             (path.size() == key.size() || path[key.size()] == u'\\');
    });
  }

 private:
  using Values = std::map<Text, Text, NoCaseLess>;
  using Keys = std::map<Text, Values, NoCaseLess>;
  std::map<RegistryRoot, Keys> roots_;
};

}  // namespace

std::unique_ptr<IRegistry> NewMemoryRegistry() { return std::make_unique<MemoryRegistry>(); }

}  // namespace brelmon::host
