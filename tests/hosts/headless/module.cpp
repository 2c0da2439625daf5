// SPDX-License-Identifier: GPL-2.0-or-later
#include "tests/hosts/headless/module.h"

#include <ogrsf_frmts.h>

namespace brelmon::headless {
namespace {

GDALDatasetUniquePtr Create(const char* driver, const std::string& path) {
  GDALAllRegister();
  return GDALDatasetUniquePtr(GetGDALDriverManager()->GetDriverByName(driver)->Create(
      path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
}

OGRLayer& CreateLayer(GDALDataset& dataset, const char* name) {
  OGRSpatialReference crs;
  crs.importFromEPSG(4326);
  crs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return *dataset.CreateLayer(name, &crs, wkbPoint, nullptr);
}

void AddField(OGRLayer& layer, const char* name, OGRFieldType type, int width = 0,
              int precision = 0, OGRFieldSubType subType = OFSTNone) {
  OGRFieldDefn field(name, type);
  field.SetWidth(width);
  field.SetPrecision(precision);
  field.SetSubType(subType);
  layer.CreateField(&field);
}

void AddRow(OGRLayer& layer, double x, double y, const std::vector<std::string>& values) {
  const OGRFeatureUniquePtr row(OGRFeature::CreateFeature(layer.GetLayerDefn()));
  OGRPoint point(x, y);
  row->SetGeometry(&point);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const int field = static_cast<int>(i);
    if (values[i].empty()) {
      row->SetFieldNull(field);
    } else {
      row->SetField(field, values[i].c_str());
    }
  }
  ASSERT_EQ(layer.CreateFeature(row.get()), OGRERR_NONE);
}

}  // namespace

std::string TreeLayer(const std::string& id) {
  return "<layer-tree-layer id=\"" + id + "\" name=\"" + id + "\" checked=\"Qt::Checked\"/>";
}

std::string ProjectXml(const std::string& tree, const std::vector<LayerXml>& layers,
                       const std::string& crs) {
  std::string text = "<!DOCTYPE qgis PUBLIC 'http://mrcc.com/qgis.dtd' 'SYSTEM'>\n";
  text += "<qgis version=\"3.22.4\"><projectCrs><spatialrefsys><authid>" + crs +
          "</authid></spatialrefsys></projectCrs><layer-tree-group>" + tree +
          "</layer-tree-group><projectlayers>";
  for (const LayerXml& layer : layers) {
    text += "<maplayer type=\"" + std::string(layer.provider == "gdal" ? "raster" : "vector") +
            "\" geometry=\"" + layer.geometry + "\"><id>" + layer.id + "</id><layername>" +
            layer.id + "</layername><datasource>" + layer.source +
            "</datasource><provider encoding=\"" + layer.encoding + "\">" + layer.provider +
            "</provider>" + layer.extra + "</maplayer>";
  }
  return text + "</projectlayers></qgis>\n";
}

HeadlessHost& Module::Open(const std::vector<LayerXml>& layers, const std::string& crs) {
  std::string tree;
  for (const LayerXml& layer : layers) tree += TreeLayer(layer.id);
  Write("map.qgs", ProjectXml(tree, layers, crs));
  host_.reset();
  host_ = std::make_unique<HeadlessHost>(Path("map.qgs"));
  return *host_;
}

Ref<IObject> Module::Item(const Text& name) const {
  for (const TreeItem& item : HeadlessHost::ItemsOf(host_->Document()->FocusMap())) {
    const auto layer = item.object.TryAs<ILayer>();
    const auto table = item.object.TryAs<IStandaloneTable>();
    if ((layer ? layer->Name() : table->Name()) == name) return item.object;
  }
  return {};
}

Ref<ILayer> Module::Layer(const Text& name) const { return Item(name).As<ILayer>(); }

Ref<IStandaloneTable> Module::Table(const Text& name) const {
  return Item(name).As<IStandaloneTable>();
}

void MakeGeoPackage(const std::string& path) {
  const GDALDatasetUniquePtr dataset = Create("GPKG", path);
  OGRLayer& layer = CreateLayer(*dataset, "sites");
  AddField(layer, "NAME", OFTString);
  AddField(layer, "BIG", OFTInteger64);
  AddField(layer, "SMALL", OFTInteger, 0, 0, OFSTInt16);
  AddField(layer, "WHEN", OFTDateTime);
  AddField(layer, "RATIO", OFTReal, 0, 0, OFSTFloat32);
  AddRow(layer, 10, 50, {"north", "5000000000", "7", "2020/02/03 04:05:59.600", "0.5"});
  AddRow(layer, 20, -50, {"south", "-1", "-7", "1950/01/01 00:00:00", ""});
  AddRow(layer, 30, 0, {"", "", "", "", ""});
}

void MakeShapefile(const std::string& path) {
  const GDALDatasetUniquePtr dataset = Create("ESRI Shapefile", path);
  OGRLayer& layer = CreateLayer(*dataset, "sites");
  AddField(layer, "N9", OFTInteger, 9);
  AddField(layer, "N10", OFTInteger64, 10);
  AddField(layer, "N4_1", OFTReal, 4, 1);
  AddField(layer, "TXT", OFTString, 20);
  AddField(layer, "DAY", OFTDate);
  AddRow(layer, 10, 50, {"999999999", "9999999999", "1.5", "b\xC3\xA4r", "2020/02/29"});
  AddRow(layer, 20, -50, {"-1", "-2", "-9.5", "O'Brien", "1999/12/31"});
  AddRow(layer, 30, 0, {"", "", "", "", ""});
}

}  // namespace brelmon::headless
