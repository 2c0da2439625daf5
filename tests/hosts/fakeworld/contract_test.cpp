// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the fake world that the rooms' tests live in: what they are told there
// is what a host tells.
#include "tests/contract/suite.h"
#include "tests/support/fake_world.h"

namespace brelmon::contract {
namespace {

using test::Row;

/// The sample's names around a few rows.
class RoomsWorld : public World {
 public:
  explicit RoomsWorld(const std::string&) {
    world_.path = u"Z:\\Module\\earth.qgs";
    world_.files[world_.path] = "<qgis/>";
    world_.map->name = u"Earth";
    world_.document->AddMap(u"Weather and storms");
    world_.map->AddFeatureLayer(u"quakes", {{u"MAG"}}, {{5.5}, {6.0}});
    const auto storms = world_.map->AddFeatureLayer(u"storms");
    world_.map->layers.pop_back();
    world_.map->AddOther(u"Hazards", {storms});
    std::vector<Row> stations;
    for (std::int32_t fid = 1; fid <= 12; ++fid) {
      Row& row = stations.emplace_back(2);
      row[0] = fid;
      row[1] = Null();
      if (fid <= 10) row[1] = fid * 100.0;
    }
    world_.map->AddFeatureLayer(u"Stations", {{u"fid", FieldType::OID}, {u"ELEV_M"}}, stations);
    world_.map->AddOther(u"Relief");
    world_.map->AddTable(u"weather", {{u"TMIN_C"}}, {{-1.0}, {3.0}});
  }
  Ref<IApplication> Application() override { return world_.application; }
  Ref<IMxDocument> Document() override { return world_.document; }
  IHostObjects& Objects() override { return HostObjects(); }
  IFileSystem& Files() override { return FileSystem(); }
  void SetTab(const Text& name) override {
    for (std::int32_t tab = 0; tab < 3; ++tab) {
      const auto view = world_.document->ContentsView(tab);
      if (view->Name() == name) world_.document->SetCurrentContentsView(view);
    }
  }
  void Pick(const std::vector<Ref<IObject>>& items) override { world_.document->Pick(items); }
  void SetGraphics(const std::vector<std::string>&) override { FAIL() << "shapes are rows here"; }

 private:
  test::FakeWorld world_;
};

class FakeContract : public testing::TestWithParam<Case> {};

TEST_P(FakeContract, Holds) { ExpectHolds<RoomsWorld>(GetParam()); }

std::vector<Case> Cases() {
  auto cases = AllCases();
  std::erase_if(cases, [](const Case& test) { return !test.anyWorld; });
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Rooms, FakeContract, testing::ValuesIn(Cases()), NameOf);

}  // namespace
}  // namespace brelmon::contract
