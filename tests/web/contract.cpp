// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the host in a page. The page puts the published modules in first, each
// below the path of its map document.
#include "tests/contract/contract.h"

#include <emscripten.h>

#include <map>
#include <stdexcept>

#include "hosts/web/webhost.h"

namespace brelmon::contract {
namespace {

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = [] {
    std::vector<Case> all = AllCases();
    std::erase_if(all, [](const Case& test) { return test.newData; });
    return all;
  }();
  return cases;
}

std::map<std::string, std::string>& Published() {
  static std::map<std::string, std::string> files;
  return files;
}

class WebWorld : public World {
 public:
  /// `module` is the path of the map document that was published.
  explicit WebWorld(const std::string& module) : host_(Published().at(module + "/module.json")) {
    const std::string tables = module + "/data/", files = module + "/module/";
    for (const auto& [name, bytes] : Published()) {
      if (name.rfind(tables, 0) == 0) host_.PutTable(name.substr(module.size() + 1), bytes);
      if (name.rfind(files, 0) == 0) host_.PutFile(name.substr(files.size()), bytes);
    }
    host_.Open({});
  }
  Ref<IApplication> Application() override { return host_.Application(); }
  Ref<IMxDocument> Document() override { return host_.Document(); }
  IHostObjects& Objects() override { return *host_.HostServices().objects; }
  IFileSystem& Files() override { return *host_.HostServices().files; }
  void SetTab(const Text& name) override { Expect(host_.User().SetTab(name), "no such tab"); }
  void Pick(const std::vector<Ref<IObject>>& items) override { host_.User().Pick(items); }
  void SetGraphics(const std::vector<std::string>& wkts) override { host_.SetGraphics(wkts); }

 private:
  web::WebHost host_;
};

const char* Answer(std::string text) {
  static std::string answer;
  answer = std::move(text);
  return answer.c_str();
}

}  // namespace
}  // namespace brelmon::contract

using namespace brelmon::contract;

extern "C" {

EMSCRIPTEN_KEEPALIVE void contract_put(const char* name, const char* data, std::size_t size) {
  Published()[name] = std::string(data, size);
}

/// The name of a case, "" behind the last.
EMSCRIPTEN_KEEPALIVE const char* contract_name(int number) {
  const auto& cases = Cases();
  const auto at = static_cast<std::size_t>(number);
  return Answer(at < cases.size() ? cases[at].name : "");
}

/// The map document of a case's module, as a path from the repository's root.
EMSCRIPTEN_KEEPALIVE const char* contract_module(int number) {
  return Answer(Cases().at(static_cast<std::size_t>(number)).module);
}

/// Why a case does not hold, "" where it does.
EMSCRIPTEN_KEEPALIVE const char* contract_run(int number) {
  try {
    const Case test = Cases().at(static_cast<std::size_t>(number));
    WebWorld world(test.module);
    test.run(world);
    return Answer("");
  } catch (const std::exception& reason) {
    return Answer(reason.what());
  }
}
}
