// SPDX-License-Identifier: GPL-2.0-or-later
// One answer whatever kind of source the rows come from: clauses, filters, values, summaries.
#include "platform/windows.h"
#include "platform/workspace.h"
#include "tests/contract/contract.h"

namespace brelmon::contract {
namespace {

using Names = std::vector<Text>;
const Names kTables = {u"points", u"table", u"geojson", u"gpkg", u"csv"};
const Names kServerTables = {u"server", u"parts"};

Ref<IObject> Called(World& world, const Text& name) {
  if (name == u"table" || name == u"filtered") return TableNamed(world, name);
  return LayerNamed(world, name);
}

/// The rows of a cursor by number, from 0: a tenth of their size, 3 for the row without one.
std::string Rows(const Ref<IObject>& table, const Ref<ICursor>& cursor) {
  const std::int32_t size = table.As<IClass>()->FindField(u"GR\u00D6\u00DFE");
  std::string rows;
  while (const Ref<IRowBuffer> row = cursor->NextRow()) {
    const Value value = row->Value(size);
    rows += std::to_string(value.IsNull() ? 3 : value.ToLong() / 10);
  }
  return rows;
}

std::string Selected(const Ref<IObject>& table) {
  return Rows(table, table.As<ITableSelection>()->SelectionSet()->Search({}, true));
}

void Select(const Ref<IObject>& table, const Text& clause, SelectionMethod method) {
  table.As<ITableSelection>()->SelectRows(clause.empty() ? Ref<IQueryFilter>() : Where(clause),
                                          method, false);
}

/// The same rows as a count, a search, a selection and a filter.
void ExpectRows(const Ref<IObject>& object, const Text& clause, const std::string& due,
                const std::string& what) {
  const Ref<ITable> table = object.As<ITable>();
  const Ref<ITableDefinition> definition = object.As<ITableDefinition>();
  ExpectEqual(table->RowCount(Where(clause)), static_cast<std::int32_t>(due.size()),
              "count of " + what);
  ExpectEqual(Rows(object, table->Search(Where(clause), true)), due, what);
  Select(object, clause, SelectionMethod::New);
  ExpectEqual(Selected(object), due, "selection of " + what);
  definition->SetDefinitionExpression(clause);
  ExpectEqual(definition->DefinitionExpression(), clause, "text of the filter " + what);
  ExpectEqual(Rows(object, table->Search({}, true)), due, "filter of " + what);
  ExpectEqual(table->RowCount({}), static_cast<std::int32_t>(due.size()),
              "count under the filter of " + what);
  definition->SetDefinitionExpression(u"");
}

void ExpectRefusal(const Ref<IObject>& object, const Text& clause, const std::string& what) {
  ExpectFailure(
      failure::kRefused, [&] { object.As<ITable>()->RowCount(Where(clause)); }, "count of " + what);
  ExpectFailure(
      failure::kRefused, [&] { Select(object, clause, SelectionMethod::New); },
      "selection of " + what);
  ExpectFailure(
      failure::kRefused, [&] { object.As<ITableDefinition>()->SetDefinitionExpression(clause); },
      "filter of " + what);
}

/// Null pointers stand for refusals.
void ExpectClauses(World& world, const Names& tables) {
  constexpr const char* kNo = nullptr;
  const struct {
    Text clause;
    // The dialect of files, and those of a GeoPackage and of a server.
    const char *files, *database, *server;
  } clauses[] = {{u"\"NAME\" = 'alpha'", "05", "", ""},
                 {u"NOT (\"VAL\" > 1)", "1345", "145", "145"},
                 {u"\"VAL\" BETWEEN 0 AND 25", "0246", "0246", "0246"},
                 {u"\"NAME\" LIKE 'a%'", "", "05", ""},
                 {u"\"NAME\" ILIKE 'a%'", "05", kNo, "05"},
                 {u"\"DAY\" > '2020-02-29'", "245", "245", "245"},
                 {u"\"BIG\" > 4999999999", "015", "015", "015"},
                 {u"\"Gr\u00F6\u00DFe\" >= 50", "567", "567", "567"},
                 {u"\"NAME\" = 'O''Brien'", "2", "2", "2"},
                 {u"\"CNT\" NOT IN (1, 2)", "3457", "457", "457"},
                 {u"\"NAME\" = 'C\u00F4te' OR \"VAL\" IS NULL", "34", "34", "34"},
                 {u"rowid > 3", kNo, kNo, kNo},
                 {u"OGR_GEOMETRY = 'POINT'", kNo, kNo, kNo},
                 {u"OGR_GEOM_AREA > 0", kNo, kNo, kNo},
                 {u"\"NAME\" = 'Alpha' LIMIT 1", kNo, kNo, kNo},
                 {u"\"NAME\" = 'Alpha'; DELETE FROM rows", kNo, kNo, kNo},
                 {u"load_extension('x') IS NULL", kNo, kNo, kNo}};
  for (const Text& name : tables) {
    const Ref<IObject> table = Called(world, name);
    for (const auto& row : clauses) {
      const std::string what = ToUtf8(name + u" where " + row.clause);
      const char* due = &tables == &kServerTables ? row.server
                        : name == u"gpkg"         ? row.database
                                                  : row.files;
      if (due) {
        ExpectRows(table, row.clause, due, what);
      } else {
        ExpectRefusal(table, row.clause, what);
      }
    }
  }
}

void Clauses(World& world) {
  ExpectClauses(world, kTables);
  // Record numbers of files; a column of that name elsewhere.
  ExpectRows(Called(world, u"points"), u"\"FID\" > 5", "67", "record numbers");
  ExpectRefusal(Called(world, u"gpkg"), u"\"FID\" > 3", "record numbers of a database");
  ExpectRows(Called(world, u"gpkg"), u"\"id\" > 6", "67", "identifiers of a database");
}

void LayersWithoutData(World& world) {
  const Ref<ILayer> gone = LayerNamed(world, u"gone");
  Expect(!gone->Valid() && gone.Offers<IFeatureLayer>(), "a layer whose file is gone");
  const Ref<ISelectionSet> selected = gone.As<ITableSelection>()->SelectionSet();
  Expect(!selected || selected->Count() == 0, "nothing of it is selected");
  bool failed = false;
  try {
    gone.As<ITable>()->Search({}, true);
  } catch (const Failure& failure) {
    failed = !failure.Description.empty();
  }
  Expect(failed, "a layer without data can't be searched");
}

void ClausesOnServers(World& world) {
  ExpectClauses(world, kServerTables);
  const Ref<IObject> table = Called(world, u"server");
  ExpectRefusal(table, u"\"name\" = 'Alpha'", "a name in another case");
  ExpectRefusal(table, u"\"VAL\" / 0 > 1", "what can't be reckoned");
  ExpectRows(table, u"abs(\"VAL\") > 30 AND \"DAY\" > date '2000-01-01'", "7", "functions");
  ExpectEqual(table.As<IFeatureLayer>()->DataSourceType(), u"PostgreSQL Feature Class", "its kind");
}

/// What touches the box from 1.5 to 3.5, on layers of points along a line.
void ShapesOnServers(World& world) {
  for (const Text& name : kServerTables) {
    const Ref<IObject> layer = Called(world, name);
    world.SetTab(u"Display");
    world.Pick({layer});
    world.SetGraphics({"POLYGON ((1.5 0, 3.5 0, 3.5 2, 1.5 2, 1.5 0))", "POINT (8 1)"});
    const auto graphics =
        world.Document()->FocusMap()->ActiveGraphicsLayer().As<IGraphicsContainerSelect>();
    const auto shapes = graphics->SelectedElements();
    layer.As<IFeatureSelection>()->Clear();
    while (const Ref<IElement> shape = shapes->Next()) {
      const auto filter = New<ISpatialFilter>();
      filter->GeometryField = u"Shape";
      filter->SpatialRel = 1;
      filter->Geometry = shape->Geometry();
      layer.As<IFeatureSelection>()->SelectFeatures(filter, SelectionMethod::Add, false);
    }
    ExpectEqual(Selected(layer), "127", ToUtf8(name) + ": what the shapes touch");
  }
}

void ExpectSelections(World& world, const Names& tables) {
  for (const Text& name : tables) {
    const Ref<IObject> table = Called(world, name);
    const std::string what = ToUtf8(name);
    const Ref<ITableDefinition> definition = table.As<ITableDefinition>();
    Select(table, u"\"CNT\" >= 2", SelectionMethod::New);
    definition->SetDefinitionExpression(u"\"VAL\" > 0");
    ExpectEqual(table.As<ITableSelection>()->SelectionSet()->Count(), 5, what + ": all selected");
    ExpectEqual(Selected(table), "27", what + ": the visible ones among the selected");
    Select(table, u"", SelectionMethod::Xor);
    ExpectEqual(Selected(table), "06", what + ": switched");
    definition->SetDefinitionExpression(u"  ");
    ExpectEqual(definition->DefinitionExpression(), u"", what + ": a blank filter is none");
    ExpectEqual(Selected(table), "01456", what + ": hidden rows stay selected");
  }
}

void SelectionsUnderFilters(World& world) { ExpectSelections(world, kTables); }
void SelectionsOnServers(World& world) { ExpectSelections(world, kServerTables); }

void ClearingAFilterOfTheProject(World& world) {
  const Ref<IObject> table = Called(world, u"filtered");
  ExpectEqual(Rows(table, table.As<ITable>()->Search({}, true)), "12", "under the filter");
  table.As<ITableDefinition>()->SetDefinitionExpression(u"");
  ExpectEqual(table.As<ITable>()->RowCount({}), 8, "without it");
  ExpectEqual(Rows(table, table.As<ITable>()->Search({}, true)), "01234567", "all rows");
}

/// A column is what its last line makes it.
void ALateTextInDelimitedText(World& world) {
  const Text folder = ModuleFolder(world);
  std::string lines = "X,Y,CODE\n";
  for (int i = 0; i < 100'000; ++i) lines += "1,2," + std::to_string(1'000'000 + i) + "\n";
  const auto file = world.Files().Open(folder + u"late.csv", FileMode::Output);
  file->Write(lines + "1,2,last\n");
  file->Close();
  const Ref<IGxLayer> late = world.Objects().NewGxLayer();
  late.As<IGxFile>()->SetPath(folder + u"late.qlr");
  world.Document()->FocusMap()->AddLayer(late->Layer());
  const Ref<ILayer> added = LayerNamed(world, u"late");
  ExpectEqual(FirstValue(added, u"CODE", u"\"CODE\" > '2'").ToText(), u"last", "a text far down");
  ExpectEqual(added.As<ITable>()->RowCount(Where(u"\"CODE\" = '1000007'")), 1, "its neighbours");
}

/// Without types asked for all are of texts.
void DelimitedTextAsItIs(World& world) {
  const Ref<IStandaloneTable> plain = TableNamed(world, u"plain");
  const Ref<IFields> fields = plain.As<IClass>()->Fields();
  for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
    Expect(fields->Field(i)->Type() == FieldType::String, ToUtf8(fields->Field(i)->Name()));
  }
  ExpectRows(plain, u"\"VAL\" = '1.5'", "06", "a number as text");
}

void ExpectUniqueValues(World& world, const Names& tables) {
  for (const Text& name : tables) {
    const Ref<IObject> table = Called(world, name);
    for (const auto& [field, due] :
         {std::pair<Text, std::int32_t>{u"NAME", 7}, {u"VAL", 6}, {u"cnt", 5}, {u"DAY", 7}}) {
      const Ref<IDataStatistics> statistics = world.Objects().NewDataStatistics();
      statistics->SetField(field);
      statistics->SetCursor(table.As<ITable>()->Search({}, false));
      ExpectEqual(statistics->UniqueValueCount(), due, ToUtf8(name + u": values of " + field));
    }
    const Ref<IDataStatistics> none = world.Objects().NewDataStatistics();
    none->SetField(u"NOPE");
    none->SetCursor(table.As<ITable>()->Search({}, false));
    ExpectFailure(
        failure::kInvalidCall, [&] { none->UniqueValueCount(); }, "values of no field");
  }
}

void UniqueValuesOfEachKind(World& world) { ExpectUniqueValues(world, kTables); }
void UniqueValuesOnServers(World& world) { ExpectUniqueValues(world, kServerTables); }

/// A new table of the map, deleted again with its files by the runner's fresh module.
Ref<IStandaloneTable> Summary(World& world, const Ref<IObject>& of, const Text& field,
                              const Text& terms, const Text& name) {
  const auto workspace =
      world.Objects().NewShapefileWorkspaceFactory()->OpenFromFile(ModuleFolder(world), 0);
  const auto dataset = New<IDatasetName>();
  dataset->Name = name;
  dataset->WorkspaceName = workspace.As<IDataset>()->FullName();
  const Ref<ITable> made = world.Objects().NewBasicGeoprocessor()->Dissolve(of.As<ITable>(), false,
                                                                            field, terms, dataset);
  const Ref<IStandaloneTable> table = world.Objects().NewStandaloneTable();
  table->SetTable(made);
  ExpectFailure(
      failure::kInvalidCall, [&] { table->SetTable(made); }, "binding a table twice");
  return table;
}

void ExpectSummaries(World& world, const Names& names) {
  int number = 0;
  for (const Text& name : names) {
    const std::string what = ToUtf8(name);
    const Ref<IObject> of = Called(world, name);
    const auto table = Summary(world, of, u"NAME", u"Minimum.NAME, Count.NAME, Sum.BIG, Sum.VAL",
                               u"made" + FromUtf8(std::to_string(++number)) + u".dbf");
    const auto tables = world.Document()->FocusMap().As<IStandaloneTableCollection>();
    tables->AddStandaloneTable(table);
    ExpectEqual(tables->StandaloneTable(tables->StandaloneTableCount() - 1)->Name(), table->Name(),
                what + ": a new table is the last");
    Text shown;
    const auto rows = table->Table()->Search({}, false);
    while (const auto row = rows->NextRow()) {
      for (std::int32_t i = 0; i < 4; ++i) {
        shown += row->Value(i).IsNull() ? Text(u"~") : row->Value(i).ToText();
        shown += i == 3 ? u"/" : u" ";
      }
    }
    ExpectEqual(shown,
                u"~ 1 ~ ~/50% 1 3 33/ALPHA 1 12345678901 -0.5/Alpha 1 5000000000 1.5/"
                u"C\u00F4te 1 -1 0/O'Brien 1 7 20.25/beta 1 5000000001 -9999/delta_x 1 0 1.5/",
                what);
    Expect(table.As<IClass>()->Fields()->FieldCount() == 4, what + ": columns");
  }
}

void Summaries(World& world) { ExpectSummaries(world, kTables); }
void SummariesOnServers(World& world) { ExpectSummaries(world, kServerTables); }

void MembersOfTheMap(World& world) {
  const Ref<IMaps> maps = world.Document()->Maps();
  ExpectEqual(maps->Count(), 2, "a group is a data frame if it is marked with the word true");
  const Ref<IMap> map = world.Document()->FocusMap();
  maps->Add(map);
  ExpectEqual(maps->Count(), 2, "a member added again");
  const Ref<IMap> created = maps->Create();
  ExpectFailure(
      failure::kInvalidCall, [&] { world.Document()->SetActiveView(created.As<IActiveView>()); },
      "a view of no frame of the document");
  ExpectFailure(
      failure::kRefused, [&] { map->Layers(New<UID>(Text(u"{0}")), true); },
      "layers of another identifier");
  ExpectEqual(created->LayerCount(), 0, "layers of a map that is no member yet");
  ExpectEqual(created.As<IStandaloneTableCollection>()->StandaloneTableCount(), 0, "its tables");
  created->SetExpanded(false);
  ExpectFailure(
      failure::kObjectNotSet, [&] { maps->Remove({}); }, "removing an unset map");
  // One layer in two frames: what goes with one of them stays in the other.
  const Ref<IMap> second = maps->Item(1);
  second->DeleteLayer(second->Layers({}, true)->Next());
  ExpectEqual(second->LayerCount(), 0, "layers of the second frame once its one is deleted");
  ExpectEqual(LayerNamed(world, u"points").As<ITable>()->RowCount({}), 8, "its other place");
  maps->Remove(second);
  ExpectEqual(LayerNamed(world, u"points").As<ITable>()->RowCount({}), 8, "the layer that stays");
}

}  // namespace

std::vector<Case> KindCases() {
  return {{"clauses of every kind", Clauses, kKinds},
          {"layers without data", LayersWithoutData, kKinds},
          {"selections under filters", SelectionsUnderFilters, kKinds},
          {"clearing a filter of the project", ClearingAFilterOfTheProject, kKinds},
          {"a late text in delimited text", ALateTextInDelimitedText, kKinds, false, true},
          {"delimited text as it is", DelimitedTextAsItIs, kKinds},
          {"unique values of every kind", UniqueValuesOfEachKind, kKinds},
          {"summaries of every kind", Summaries, kKinds},
          {"members of the map", MembersOfTheMap, kKinds}};
}

std::vector<Case> ServerCases() {
  return {{"clauses on servers", ClausesOnServers, kServers},
          {"shapes on servers", ShapesOnServers, kServers},
          {"selections on servers", SelectionsOnServers, kServers},
          {"clearing a filter of a server s layer", ClearingAFilterOfTheProject, kServers},
          {"unique values on servers", UniqueValuesOnServers, kServers},
          {"summaries on servers", SummariesOnServers, kServers}};
}

}  // namespace brelmon::contract
