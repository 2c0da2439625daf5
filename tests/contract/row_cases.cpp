// SPDX-License-Identifier: GPL-2.0-or-later
// Values, cursors, queries, definitions, unique values.
#include "tests/contract/contract.h"

namespace brelmon::contract {
namespace {

void ValuesOfAllKinds(World& world) {
  const Ref<ILayer> stations = LayerNamed(world, u"Stations");
  ExpectEqual(FirstValue(stations, u"NAME", u"\"fid\" = 8").ToText(), u"Tokyo", "text");
  ExpectEqual(FirstValue(stations, u"fid", u"\"NAME\" = 'Tokyo'").ToLong(), 8, "identifier");
  ExpectEqual(FirstValue(stations, u"READINGS", u"\"fid\" = 8").ToDouble(), 6213550018.0,
              "a whole number of more than 32 bits");
  Expect(FirstValue(stations, u"READINGS", u"\"fid\" = 11").If<std::int32_t>() != nullptr,
         "a whole number of 32 bits");
  ExpectEqual(FirstValue(stations, u"ELEV_M", u"\"fid\" = 9").ToDouble(), 12.5, "double");
  ExpectEqual(FirstValue(stations, u"OPENED", u"\"fid\" = 8").ToDate().Serial,
              ToDate({2006, 4, 3, 0, 0, 0}).Serial, "date");
  Expect(FirstValue(stations, u"ELEV_M", u"\"fid\" = 11").IsNull(), "a null is null, not 0");
  ExpectFailure(
      failure::kInvalidUseOfNull,
      [&] { FirstValue(stations, u"ELEV_M", u"\"fid\" = 11").ToDouble(); }, "null as number",
      u"BrelmonOpenTable");
  const Ref<ILayer> countries = LayerNamed(world, u"countries");
  ExpectEqual(FirstValue(countries, u"NAME", u"\"ISO_A3\" = 'CIV'").ToText(), u"C\u00F4te d'Ivoire",
              "letters outside of ASCII");
}

void CursorsOfTheirOwn(World& world) {
  const Ref<ITable> quakes = LayerNamed(world, u"quakes").As<ITable>();
  const Ref<ICursor> one = quakes->Search({}, true);
  const Ref<IRowBuffer> first = one->NextRow();
  const double magnitude = first->Value(0).ToDouble();
  const Ref<ICursor> other = quakes->Search({}, false);
  const Ref<IRowBuffer> kept = other->NextRow();
  ExpectEqual(RowsOf(other), 1706, "rows of the second cursor");
  ExpectEqual(kept->Value(0).ToDouble(), magnitude, "a row that is kept");
  ExpectEqual(RowsOf(one), 1706, "rows of the first cursor");
  Expect(!one->NextRow(), "the end stays the end");
  ExpectFailure(
      failure::kSubscript, [&] { kept->Value(12); }, "a value out of bounds");
}

void QueriesAndCounts(World& world) {
  const Ref<ITable> quakes = LayerNamed(world, u"quakes").As<ITable>();
  ExpectEqual(quakes->RowCount({}), 1707, "all rows");
  ExpectEqual(quakes->RowCount(Where(u"")), 1707, "an empty clause");
  const Text strong = u"( \"MAG\" >= 5.5 )";
  const std::int32_t count = quakes->RowCount(Where(strong));
  Expect(count > 0 && count < 100, "strong quakes");
  ExpectEqual(RowsOf(quakes->Search(Where(strong), true)), count, "rows found");
  ExpectEqual(RowsOf(quakes->Search(Where(strong, u"MAG"), true)), count, "rows with one field");
  const Ref<IRowBuffer> row = quakes->Search(Where(u"", u"MAG"), true)->NextRow();
  Expect(!row->Value(0).IsEmpty() && !row->Value(0).IsNull(), "the field that is read");
  ExpectEqual(
      TableNamed(world, u"weather")->Table()->RowCount(Where(u"\"TMIN_C\" < 0")),
      RowsOf(TableNamed(world, u"weather")->Table()->Search(Where(u"\"TMIN_C\" < 0"), true)),
      "a table's rows");
}

void RefusedQueries(World& world) {
  for (const Text& name : {Text(u"quakes"), Text(u"Stations")}) {
    const Ref<ITable> table = LayerNamed(world, name).As<ITable>();
    const std::int32_t before = table->RowCount({});
    for (const Text& clause :
         {Text(u"(  )"), Text(u"\"MAGG\" = 'x'"), Text(u"\"NAMME\" <> 'x'"), Text(u"NAMME > 1"),
          Text(u"( \"MAG\" > "), Text(u"\"fid\" = 1) OR (1 = 1"), Text(u"'O'Brien' = 'x'")}) {
      const auto filter = Where(clause);
      const std::string what = ToUtf8(name + u" where " + clause);
      ExpectFailure(
          failure::kRefused, [&] { table->Search(filter, false); }, what);
      ExpectFailure(
          failure::kRefused, [&] { table->RowCount(filter); }, "counting " + what);
      ExpectFailure(
          failure::kRefused, [&] { table.As<ITableDefinition>()->SetDefinitionExpression(clause); },
          "filter of " + what);
    }
    ExpectEqual(table->RowCount({}), before, "rows after refusals");
    ExpectEqual(table.As<ITableDefinition>()->DefinitionExpression(), u"",
                "definition after refusals");
  }
}

void Definitions(World& world) {
  const Ref<ILayer> layer = LayerNamed(world, u"Stations");
  const Ref<ITable> table = layer.As<ITable>();
  const Ref<ITableDefinition> definition = layer.As<ITableDefinition>();
  layer.As<IFeatureSelection>()->SelectFeatures(Where(u"\"fid\" <= 3"), SelectionMethod::New,
                                                false);
  definition->SetDefinitionExpression(u"\"fid\" >= 3");
  ExpectEqual(definition->DefinitionExpression(), u"\"fid\" >= 3", "the text as it was set");
  ExpectEqual(table->RowCount({}), 10, "rows under the filter");
  ExpectEqual(table->RowCount(Where(u"\"fid\" <= 4 OR \"fid\" = 1")), 2,
              "a query under the filter");
  ExpectEqual(layer.As<ITableSelection>()->SelectionSet()->Count(), 3, "the selection stays");
  definition->SetDefinitionExpression(u"");
  ExpectEqual(table->RowCount({}), 12, "rows without a filter");
}

void UniqueValues(World& world) {
  const Ref<ILayer> stations = LayerNamed(world, u"Stations");
  const Ref<IDataStatistics> statistics = world.Objects().NewDataStatistics();
  statistics->SetField(u"ELEV_M");
  statistics->SetCursor(stations.As<ITable>()->Search({}, false));
  const Ref<IEnumValue> values = statistics->UniqueValues();
  const std::int32_t count = statistics->UniqueValueCount();
  std::int32_t seen = 0;
  for (Value value = values->Next(); !value.IsEmpty(); value = values->Next()) {
    Expect(!value.IsNull(), "a null is no unique value");
    ++seen;
  }
  ExpectEqual(seen, count, "values counted and enumerated");
  ExpectEqual(count, 10, "distinct elevations, the two nulls left out");
}

}  // namespace

std::vector<Case> RowCases() {
  return {{"values of all kinds", ValuesOfAllKinds}, {"cursors of their own", CursorsOfTheirOwn},
          {"queries and counts", QueriesAndCounts},  AnyWorld("refused queries", RefusedQueries),
          AnyWorld("definitions", Definitions),      AnyWorld("unique values", UniqueValues)};
}

}  // namespace brelmon::contract
