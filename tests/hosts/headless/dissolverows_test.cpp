// SPDX-License-Identifier: GPL-2.0-or-later
// Rows to dissolve: GDAL's features and the platform's cursor tell the same.
#include "hosts/headless/dissolverows.h"

#include <gtest/gtest.h>

#include "hosts/headless/headlesshost.h"
#include "platform/map.h"
#include "tests/hosts/headless/module.h"

namespace brelmon::headless {
namespace {

std::string Shown(const host::DissolveCell& cell) {
  const std::string kind = std::to_string(static_cast<int>(cell.Is)) + " ";
  return kind + std::to_string(cell.Number) + " " + std::string(cell.Text);
}

/// All cells of all fields that can be summarized, a line a row.
std::vector<std::string> Everything(host::IDissolveRows& rows) {
  std::vector<std::size_t> fields;
  for (std::size_t i = 0; i < rows.Fields().size(); ++i) {
    if (rows.Fields()[i].Type < FieldType::Geometry) fields.push_back(i);
  }
  rows.Choose(fields);
  std::vector<std::string> lines;
  while (rows.Next()) {
    std::string line;
    for (const std::size_t field : fields) line += Shown(rows.Cell(field)) + "; ";
    lines.push_back(std::move(line));
  }
  return lines;
}

TEST(DissolveRows, AgreeWithTheCursor) {
  HeadlessHost host{BRELMON_SOURCE_DIR "/samples/earth"};
  const auto map = host.Document()->FocusMap();
  std::vector<Ref<ITable>> tables;
  const auto layers = map->Layers(New<UID>(Text(kFeatureLayerUID)), true);
  for (auto layer = layers->Next(); layer; layer = layers->Next()) {
    if (layer->Valid()) tables.push_back(layer.As<ITable>());
  }
  const auto others = map.As<IStandaloneTableCollection>();
  for (std::int32_t i = 0; i < others->StandaloneTableCount(); ++i) {
    const auto table = others->StandaloneTable(i);
    if (table->Valid()) tables.push_back(table->Table());
  }
  ASSERT_FALSE(tables.empty());
  for (const auto& table : tables) {
    table.As<ITableSelection>()->SelectRows({}, SelectionMethod::New, true);
    for (const bool selected : {false, true}) {
      const auto fast = Everything(*NewDissolveRows(table, selected));
      EXPECT_EQ(fast, Everything(*host::NewTableRows(table, selected)));
      EXPECT_TRUE(!selected || fast.size() == 1) << fast.size();
    }
  }
}

// GDAL complains of the null among the dates and reads on.
TEST(DissolveRows, ReadOnWhereAFilterMeetsNulls) {
  Module module;
  MakeShapefile(module.Path("sites.shp"));
  module.Open({{"s", "sites.shp"}});
  const auto table = module.Layer(u"s").As<ITable>();
  table.As<ITableDefinition>()->SetDefinitionExpression(u"\"DAY\" > '2000/01/01'");
  EXPECT_EQ(Everything(*NewDissolveRows(table, false)).size(), 1u);
}

}  // namespace
}  // namespace brelmon::headless
