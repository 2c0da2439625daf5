// SPDX-License-Identifier: GPL-2.0-or-later
// Renderers as symbols; rasters as pictures.
#include "hosts/publish/symbols.h"

#include <gdal_priv.h>
#include <gtest/gtest.h>
#include <ogr_spatialref.h>

#include <pugixml.hpp>

#include "hosts/publish/rasterpicture.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::publish {
namespace {

std::string Symbol(const std::string& kind, const std::string& properties,
                   const std::string& name = "0") {
  return "<symbol alpha='0.5' name='" + name + "'><layer class='" + kind +
         "' enabled='1'><Option type='Map'>" + properties + "</Option></layer></symbol>";
}

std::string Property(const std::string& name, const std::string& value) {
  return "<Option name='" + name + "' value='" + value + "'/>";
}

TEST(Symbols, FollowTheRendererOrAreToldOf) {
  const std::string dot =
      Symbol("SimpleMarker", Property("color", "255,0,16,255") + Property("name", "cross2") +
                                 Property("size", "1") + Property("size_unit", "Inch") +
                                 Property("outline_style", "no"));
  const std::string line = Symbol(
      "SimpleLine", Property("line_color", "0,0,0,255") + Property("line_width", "2") +
                        Property("line_width_unit", "Pixel") + Property("line_style", "dash"));
  const std::string drawnDot = "{\"shape\":\"x\",\"size\":96.0,\"fill\":\"#ff001080\"}";
  const struct {
    std::string renderer, symbols, told;
  } rows[] = {
      {"type='singleSymbol'><symbols>" + dot + "</symbols>",
       "{\"type\":\"simple\",\"symbol\":" + drawnDot + ",\"opacity\":0.25}", ""},
      {"type='singleSymbol'><symbols>" + line + "</symbols>",
       "{\"type\":\"simple\",\"symbol\":{\"stroke\":\"#00000080\",\"width\":2.0,\"dash\":[8.0,4.0]}"
       ","
       "\"opacity\":0.25}",
       ""},
      {"type='singleSymbol'><symbols>" + Symbol("SvgMarker", "") + "</symbols>",
       "{\"type\":\"simple\",\"opacity\":0.25}",
       "layer: its symbols are more than simple ones (SvgMarker); they are drawn plainly"},
      {"type='categorizedSymbol' attr='\"mag\"'><categories>"
       "<category value='' symbol='0' label='rest'/>"
       "<category value='7' symbol='0' label='seven' render='false'/>"
       "</categories><symbols>" +
           dot + "</symbols>",
       "{\"type\":\"categorized\",\"field\":\"MAG\",\"classes\":["
       "{\"label\":\"seven\",\"visible\":false,\"symbol\":" +
           drawnDot +
           ",\"value\":7.0},"
           "{\"label\":\"rest\",\"visible\":true,\"symbol\":" +
           drawnDot +
           ",\"value\":null}],"
           "\"opacity\":0.25}",
       ""},
      {"type='graduatedSymbol' attr='MAG'><ranges>"
       "<range lower='0.1' upper='2' symbol='0' label='few'/></ranges><symbols>" +
           dot + "</symbols>",
       "{\"type\":\"graduated\",\"field\":\"MAG\",\"classes\":[{\"label\":\"few\",\"visible\":true,"
       "\"symbol\":" +
           drawnDot + ",\"from\":0.1,\"to\":2.0}],\"opacity\":0.25}",
       ""},
      {"type='graduatedSymbol' attr='MAG * 2'>", "null",
       "layer: its classes are those of the expression MAG * 2; it is drawn plainly"},
      {"type='RuleRenderer'>", "null",
       "layer: its renderer \"RuleRenderer\" is none that a page has; it is drawn plainly"},
  };
  for (const auto& row : rows) {
    pugi::xml_document xml;
    ASSERT_TRUE(xml.load_string(("<maplayer><layerOpacity>0.25</layerOpacity><renderer-v2 " +
                                 row.renderer + "</renderer-v2></maplayer>")
                                    .c_str()));
    Report report;
    columns::Field field;
    field.Name = "MAG";
    field.Stored = columns::Storage::Real;
    EXPECT_EQ(TextOf(SymbolsOf(xml.first_child(), {field}, "layer", report)), row.symbols);
    EXPECT_EQ(report.Lines(),
              row.told.empty() ? std::vector<std::string>() : std::vector<std::string>{row.told});
  }
}

TEST(RasterPicture, HasTheProjectsColoursInTheDocumentsSystem) {
  GDALAllRegister();
  const TempFolder folder;
  GDALDatasetUniquePtr raster(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
      folder.Path("r.tif").c_str(), 2, 1, 1, GDT_Byte, nullptr));
  double corner[] = {0, 10, 0, 10, 0, -10};
  raster->SetGeoTransform(corner);
  OGRSpatialReference degrees, metres;
  degrees.importFromEPSG(4326);
  metres.importFromEPSG(3857);
  raster->SetSpatialRef(&degrees);
  raster->GetRasterBand(1)->SetNoDataValue(9);
  GByte cells[] = {7, 9};
  ASSERT_EQ(raster->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, 2, 1, cells, 2, 1, GDT_Byte, 0, 0,
                                               nullptr),
            CE_None);
  raster.reset();
  pugi::xml_document xml;
  xml.load_string(
      "<maplayer><pipe><rasterrenderer type='paletted' band='1' opacity='0.5'><colorPalette>"
      "<paletteEntry value='7' color='#102030' alpha='128'/></colorPalette></rasterrenderer></pipe>"
      "</maplayer>");
  std::string loss;
  const RasterStyle style(xml.first_child(), loss);
  EXPECT_EQ(style.Opacity(), 0.5);
  const auto extent =
      WritePicture(folder.Path("r.tif"), style, nullptr, &metres, folder.Path("r.png"));
  EXPECT_NEAR(extent[0], 0, 1);
  EXPECT_NEAR(extent[2], 2226389.8, 5000) << "to a pixel";
  EXPECT_NEAR(extent[3], 1118889.97, 1);
  const GDALDatasetUniquePtr picture(GDALDataset::Open(folder.Path("r.png").c_str()));
  ASSERT_TRUE(picture);
  const auto at = [&](int x, int band) {
    GByte value = 0;
    EXPECT_EQ(picture->GetRasterBand(band)->RasterIO(GF_Read, x, 0, 1, 1, &value, 1, 1, GDT_Byte, 0,
                                                     0, nullptr),
              CE_None);
    return static_cast<int>(value);
  };
  EXPECT_EQ((std::vector<int>{at(0, 1), at(0, 2), at(0, 3), at(0, 4)}),
            (std::vector<int>{0x10, 0x20, 0x30, 128}));
  EXPECT_EQ(at(picture->GetRasterXSize() - 1, 4), 0) << "no data";
  EXPECT_FALSE(std::filesystem::exists(folder.Path("r.png.aux.xml")));
}

}  // namespace
}  // namespace brelmon::publish
