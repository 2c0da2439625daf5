// SPDX-License-Identifier: GPL-2.0-or-later
// Selected rows: set arithmetic, searches, graphics.
#include "tests/contract/contract.h"

namespace brelmon::contract {
namespace {

std::int32_t Selected(const Ref<IObject>& table) {
  const Ref<ISelectionSet> set = table.As<ITableSelection>()->SelectionSet();
  return set ? set->Count() : 0;
}

void MethodsOnALayer(World& world) {
  const Ref<ILayer> stations = LayerNamed(world, u"Stations");
  const Ref<IFeatureSelection> selection = stations.As<IFeatureSelection>();
  struct Row {
    const char16_t* clause;
    SelectionMethod method;
    std::int32_t due;
  };
  for (const Row& row :
       {Row{u"\"fid\" <= 5", SelectionMethod::New, 5},
        Row{u"\"fid\" >= 4 AND \"fid\" <= 8", SelectionMethod::Add, 8},
        Row{u"\"fid\" < 3 OR \"fid\" = 12", SelectionMethod::Subtract, 6},
        Row{u"\"fid\" > 6", SelectionMethod::And, 2}, Row{u"\"fid\" > 7", SelectionMethod::Xor, 5},
        Row{u"\"fid\" = 999", SelectionMethod::New, 0}}) {
    selection->SelectFeatures(Where(row.clause), row.method, false);
    ExpectEqual(Selected(stations), row.due, ToUtf8(row.clause));
  }
  selection->SelectFeatures({}, SelectionMethod::New, false);
  ExpectEqual(Selected(stations), 12, "all");
  selection->SelectFeatures({}, SelectionMethod::Xor, false);
  ExpectEqual(Selected(stations), 0, "all switched");
  selection->SelectFeatures({}, SelectionMethod::New, true);
  ExpectEqual(Selected(stations), 1, "just one");
  selection->Clear();
  selection->SelectionChanged();
  ExpectEqual(Selected(stations), 0, "cleared");
}

void RefusedSelection(World& world) {
  const Ref<ILayer> stations = LayerNamed(world, u"Stations");
  const Ref<IFeatureSelection> selection = stations.As<IFeatureSelection>();
  selection->SelectFeatures(Where(u"\"fid\" <= 5"), SelectionMethod::New, false);
  ExpectFailure(
      failure::kRefused,
      [&] { selection->SelectFeatures(Where(u"\"NOPE\" = 'x'"), SelectionMethod::New, false); },
      "a selection by a field that isn't there");
  ExpectEqual(Selected(stations), 5, "the selection after a refusal");
}

void SearchesInASelection(World& world) {
  const Ref<ILayer> quakes = LayerNamed(world, u"quakes");
  const Ref<ITableSelection> selection = quakes.As<ITableSelection>();
  selection->SelectRows(Where(u"\"MAG\" >= 5"), SelectionMethod::New, false);
  const std::int32_t count = Selected(quakes);
  const Ref<ISelectionSet> set = selection->SelectionSet();
  ExpectEqual(RowsOf(set->Search({}, true)), count, "selected rows");
  const Ref<ICursor> some = set->Search(Where(u"\"MAG\" < 5.5", u"MAG"), true);
  std::int32_t rows = 0;
  while (const Ref<IRowBuffer> row = some->NextRow()) {
    const double magnitude = row->Value(0).ToDouble();
    Expect(magnitude >= 5 && magnitude < 5.5, "a selected row that matches");
    ++rows;
  }
  Expect(rows > 0 && rows < count, "some of the selected rows");
  selection->Clear();
  ExpectEqual(set->Count(), 0, "a selection set tells of the present selection");
}

void TablesAsAWhole(World& world) {
  const Ref<IStandaloneTable> weather = TableNamed(world, u"weather");
  weather.As<ITableSelection>()->SelectRows({}, SelectionMethod::New, false);
  ExpectEqual(Selected(weather), 2922, "a table's rows");
}

void Graphics(World& world) {
  const Ref<IMap> map = world.Document()->FocusMap();
  ExpectEqual(map->ActiveGraphicsLayer()->ElementSelectionCount(), 0, "no graphics at first");
  world.SetGraphics({"POLYGON((-180 10, -150 10, -150 30, -180 30, -180 10))", "POINT(0 80)"});
  const Ref<IGraphicsContainerSelect> graphics = map->ActiveGraphicsLayer();
  ExpectEqual(graphics->ElementSelectionCount(), 2, "selected graphics");
  const Ref<IEnumElement> elements = graphics->SelectedElements();
  const auto filter = New<ISpatialFilter>();
  filter->GeometryField = u"Shape";
  filter->SpatialRel = 1;
  filter->Geometry = elements->Next()->Geometry();
  Expect(elements->Next() && !elements->Next(), "graphics end");
  elements->Reset();
  Expect(static_cast<bool>(elements->Next()), "and begin again");
  const Ref<ILayer> countries = LayerNamed(world, u"countries");
  countries.As<IFeatureSelection>()->SelectFeatures(filter, SelectionMethod::Add, false);
  ExpectEqual(Selected(countries), 1, "the one country with islands there");
  // The shape column of a GeoPackage bears another name in the file.
  const Ref<ILayer> stations = LayerNamed(world, u"Stations");
  stations.As<IFeatureSelection>()->SelectFeatures(filter, SelectionMethod::Add, false);
  ExpectEqual(Selected(stations), 1, "the one station there");
  filter->GeometryField = u"geom";
  ExpectFailure(
      failure::kRefused,
      [&] {
        stations.As<IFeatureSelection>()->SelectFeatures(filter, SelectionMethod::Add, false);
      },
      "a geometry field of another name");
}

}  // namespace

std::vector<Case> SelectionCases() {
  return {AnyWorld("methods on a layer", MethodsOnALayer),
          AnyWorld("refused selection", RefusedSelection),
          {"searches in a selection", SearchesInASelection},
          {"tables as a whole", TablesAsAWhole},
          {"graphics", Graphics}};
}

}  // namespace brelmon::contract
