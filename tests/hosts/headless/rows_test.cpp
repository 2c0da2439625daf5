// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors, queries and selections beyond the contract.
#include "tests/hosts/headless/module.h"

namespace brelmon::headless {
namespace {

Ref<IQueryFilter> Where(const Text& clause, const Text& subFields = {}) {
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = clause;
  filter->SubFields = subFields;
  return filter;
}

class RowsTest : public testing::Test {
 protected:
  RowsTest() {
    MakeShapefile(module.Path("sites.shp"));
    MakeGeoPackage(module.Path("g.gpkg"));
    host = &module.Open({{"s", "sites.shp"}, {"g", "g.gpkg|layername=sites"}}, "EPSG:3857");
  }
  Ref<ITable> Table(const Text& name) { return module.Layer(name).As<ITable>(); }
  std::int32_t Selected(const Text& name) {
    return module.Layer(name).As<ITableSelection>()->SelectionSet()->Count();
  }
  Module module;
  HeadlessHost* host = nullptr;
};

TEST_F(RowsTest, QueriesGoToTheSourceAsTyped) {
  struct Row {
    const char16_t* layer;
    const char16_t* clause;
    std::int32_t due;  // rows, -1 for a refusal
  };
  for (const Row& row :
       {Row{u"s", u"\"TXT\" = 'O''Brien'", 1}, Row{u"s", u"\"DAY\" > '2000/01/01'", 1},
        Row{u"s", u"N10 IS NULL", 1}, Row{u"s", u"FID = 1", 1}, Row{u"s", u"[N9] = -1", -1},
        Row{u"s", u"\"N9\" = ", -1}, Row{u"s", u"   ", 3}, Row{u"g", u"\"NAME\" LIKE 'NORTH'", 1},
        Row{u"g", u"[BIG] > 4000000000", 1}, Row{u"g", u"length(\"NAME\") = 5 AND fid < 3", 2},
        Row{u"g", u"rowid < 3", -1}, Row{u"g", u"\"fid\" IN (SELECT max(fid) FROM sites)", 1},
        Row{u"g", u"\"NAMES\" = 'NAMES'", -1}, Row{u"g", u"nofunction(\"NAME\")", -1},
        Row{u"g", u"(  )", -1}}) {
    SCOPED_TRACE(ToUtf8(Text(row.layer) + u" where " + row.clause));
    std::int32_t rows = 0;
    const std::int32_t number =
        NumberOf([&] { rows = Table(row.layer)->RowCount(Where(row.clause)); });
    EXPECT_EQ(number, row.due < 0 ? failure::kRefused : 0);
    if (row.due >= 0) {
      EXPECT_EQ(rows, row.due);
    }
    if (number != 0) continue;
    const Ref<ITableSelection> selection = module.Layer(row.layer).As<ITableSelection>();
    selection->SelectRows(Where(row.clause), SelectionMethod::New, false);
    EXPECT_EQ(Selected(row.layer), row.due) << "as a selection";
  }
}

TEST_F(RowsTest, GraphicsComeFromTheProjectsReferenceSystem) {
  // 1113195 6446275 in the project's metres is 10 degrees east, 50 north.
  host->SetGraphics(
      {"POLYGON((1100000 6400000,1200000 6500000,1100000 6500000,1100000 6400000))",
       "POLYGON((1100000 6400000,1200000 6400000,1200000 6500000,1100000 6400000))", "POINT(10 50)",
       "POLYGON((2200000 -6400000,2300000 -6500000,2200000 -6500000,2200000 -6400000))"});
  const auto filter = New<ISpatialFilter>();
  filter->GeometryField = u"SHAPE";
  filter->SpatialRel = 1;
  const Ref<IEnumElement> graphics =
      host->Document()->FocusMap()->ActiveGraphicsLayer()->SelectedElements();
  std::vector<std::int32_t> hits;
  while (const Ref<IElement> element = graphics->Next()) {
    filter->Geometry = element->Geometry();
    module.Layer(u"s").As<IFeatureSelection>()->SelectFeatures(filter, SelectionMethod::New, false);
    hits.push_back(Selected(u"s"));
  }
  // Both boxes hold the point, one triangle does; degrees are no metres.
  EXPECT_EQ(hits, (std::vector<std::int32_t>{1, 0, 0, 1}));
}

TEST_F(RowsTest, GraphicsInDegreesMeetALayerInMetres) {
  host = &module.Open({{"s", "sites.shp", "ogr", "Point",
                        "<srs><spatialrefsys><authid>EPSG:3857</authid></spatialrefsys></srs>"}});
  host->SetGraphics({"POLYGON((0.00015 -1, 1 -1, 1 1, 0.00015 1, 0.00015 -1))"});
  const auto filter = New<ISpatialFilter>();
  filter->GeometryField = u"Shape";
  filter->SpatialRel = 1;
  filter->Geometry =
      host->Document()->FocusMap()->ActiveGraphicsLayer()->SelectedElements()->Next()->Geometry();
  module.Layer(u"s").As<IFeatureSelection>()->SelectFeatures(filter, SelectionMethod::New, false);
  EXPECT_EQ(Selected(u"s"), 2);
}

TEST_F(RowsTest, LayersOfARemovedFrameAreGone) {
  const Ref<ILayer> layer = module.Layer(u"s");
  const Ref<ISelectionSet> set = layer.As<ITableSelection>()->SelectionSet();
  const Ref<IMaps> maps = host->Document()->Maps();
  maps->Add(maps->Create());
  maps->Item(1)->AddLayer(layer);
  maps->Remove(maps->Item(0));
  EXPECT_TRUE(layer->Valid());  // the other frame holds it still
  maps->Item(0)->DeleteLayer(layer);
  EXPECT_FALSE(layer->Valid());
  EXPECT_EQ(NumberOf([&] { set->Search({}, true); }), failure::kNoSuchObject);
}

}  // namespace
}  // namespace brelmon::headless
