// SPDX-License-Identifier: GPL-2.0-or-later
// Data of all formats: types, values, addresses, what can't be reached.
#include "platform/workspace.h"
#include "tests/hosts/headless/module.h"

namespace brelmon::headless {
namespace {

/// "NAME:TYPE " for each field, then the rows' values under it, "~" for a null.
std::string Dump(const Ref<IObject>& table) {
  std::string text;
  const auto fields = table.As<ITableFields>();
  for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
    text += ToUtf8(fields->Field(i)->Name()) + ":" +
            std::to_string(static_cast<int>(fields->Field(i)->Type())) + " ";
  }
  const Ref<ICursor> cursor = table.As<ITable>()->Search({}, true);
  while (const Ref<IRowBuffer> row = cursor->NextRow()) {
    text += "/";
    for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
      const Value value = row->Value(i);
      text += " " + (value.IsNull() ? "~" : ToUtf8(value.ToText()));
    }
  }
  return text;
}

class SourceTest : public testing::Test {
 protected:
  Module module;
};

TEST_F(SourceTest, GeoJson) {
  module.Write("p.geojson",
               R"({"type":"FeatureCollection","features":[
      {"type":"Feature","geometry":{"type":"Point","coordinates":[1,2]},
       "properties":{"n":1,"x":2.5,"s":"a","big":5000000000}},
      {"type":"Feature","geometry":null,"properties":{"n":null,"x":3,"s":""}}]})");
  module.Open({{"p", "./p.geojson"}});
  EXPECT_EQ(Dump(module.Layer(u"p")), "n:1 x:3 s:4 big:3 / 1 2.5 a 5000000000/ ~ 3  ~");
  EXPECT_EQ(module.Layer(u"p").As<IFeatureLayer>()->DataSourceType(), u"GeoJSON Feature Class");
}

TEST_F(SourceTest, DelimitedText) {
  module.Write("p 1.csv", "lon;lat;name;n\n10;50;K\xF6ln;1\n20;60;;\n");
  const std::string text = "delimitedtext", latin = "ISO-8859-1";
  module.Open({{"points", "file:./p%201.csv?type=csv&amp;delimiter=;&amp;xField=lon&amp;yField=lat",
                text, "Point", "", latin},
               {"rows", "file://" + module.Path("p%201.csv") + "?type=csv&amp;geomType=none", text,
                "No geometry", "", latin},
               {"odd", "file:p%201.csv?delimiter=%23", text},
               {"escaped", "file:p%201.csv?delimiter=%3B&amp;xField=lon&amp;yField=lat", text}});
  EXPECT_EQ(Dump(module.Layer(u"points")),
            "lon:3 lat:3 name:4 n:1 / 10 50 K\xC3\xB6ln 1/ 20 60 ~ ~");
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = u"\"name\" = 'K\u00F6ln'";
  EXPECT_EQ(module.Layer(u"points").As<ITable>()->RowCount(filter), 1);
  EXPECT_EQ(module.Table(u"rows")->Table()->RowCount({}), 2);
  EXPECT_FALSE(module.Layer(u"odd")->Valid());
  EXPECT_TRUE(module.Layer(u"escaped")->Valid());
}

TEST_F(SourceTest, CodePageOfTheProjectWins) {
  std::filesystem::create_directory(module.Path("data"));
  MakeShapefile(module.Path("data/sites.shp"));
  std::filesystem::remove(module.Path("data/sites.cpg"));
  module.Open({{"latin", "data\\sites.shp", "ogr", "Point", "", "ISO-8859-1"},
               {"cyrillic", "./data/sites.shp", "ogr", "Point", "", "CP1251"}});
  EXPECT_NE(Dump(module.Layer(u"latin")).find("b\xC3\xA4r"), std::string::npos);
  EXPECT_NE(Dump(module.Layer(u"cyrillic")).find("b\xD0\xB4r"), std::string::npos);
}

TEST_F(SourceTest, WhatCannotBeReachedIsInvalidAndSaysWhy) {
  MakeShapefile(module.Path("sites.shp"));
  std::filesystem::copy(module.Path("sites.shp"), module.Path("bare.shp"));
  std::filesystem::copy(module.Path("sites.shx"), module.Path("bare.shx"));
  module.Write("half.gpkg", "SQLite format 3");
  HeadlessHost& host = module.Open({{"gone", "gone.shp"},
                                    {"no table", "bare.shp"},
                                    {"half", "half.gpkg"},
                                    {"bad filter", "sites.shp|subset=\"N9\" >"},
                                    {"net", "url=x", "wfs"},
                                    {"lost table", "gone.dbf", "ogr", "No geometry"}});
  for (const TreeItem& item : HeadlessHost::ItemsOf(host.Document()->FocusMap())) {
    const auto layer = item.object.TryAs<ILayer>();
    SCOPED_TRACE(layer ? ToUtf8(layer->Name()) : "table");
    EXPECT_FALSE(layer ? layer->Valid() : item.object.As<IStandaloneTable>()->Valid());
    EXPECT_EQ(NumberOf([&] { item.object.As<ITable>()->Search({}, true); }), 53);
    EXPECT_EQ(item.object.As<ITableFields>()->FieldCount(), 0);
    EXPECT_FALSE(item.object.As<ITableSelection>()->SelectionSet());
  }
}

}  // namespace
}  // namespace brelmon::headless
