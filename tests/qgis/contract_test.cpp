// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the running QGIS.
#include "tests/contract/suite.h"
#include "tests/qgis/inside.h"

namespace brelmon::contract {
namespace {

class QgisWorld : public World {
 public:
  explicit QgisWorld(const std::string& module) {
    qgis::test::OpenModule(QString::fromStdString(module).section(QLatin1Char('/'), -2));
  }
  Ref<IApplication> Application() override { return qgis::test::Access().application; }
  Ref<IMxDocument> Document() override { return qgis::test::Document(); }
  IHostObjects& Objects() override { return *qgis::test::Access().services.objects; }
  IFileSystem& Files() override { return *qgis::test::Access().services.files; }
  // QGIS has one tab: the Layers panel can be seen, or not.
  void SetTab(const Text& name) override { qgis::test::ShowLayersPanel(name == u"Display"); }
  void Pick(const std::vector<Ref<IObject>>& items) override { qgis::test::Pick(items); }
  void SetGraphics(const std::vector<std::string>& wkts) override { qgis::test::SetGraphics(wkts); }
};

class Contract : public testing::TestWithParam<Case> {};

TEST_P(Contract, Holds) { ExpectHolds<QgisWorld>(GetParam()); }

INSTANTIATE_TEST_SUITE_P(ContractOfQgis, Contract, testing::ValuesIn(AllCases()), NameOf);

class Servers : public testing::TestWithParam<Case> {};

TEST_P(Servers, Hold) { ExpectHolds<QgisWorld>(GetParam()); }

INSTANTIATE_TEST_SUITE_P(ServersOfQgis, Servers, testing::ValuesIn(ServerCases()), NameOf);

}  // namespace
}  // namespace brelmon::contract
