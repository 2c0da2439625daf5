// SPDX-License-Identifier: GPL-2.0-or-later
// Warped by GDAL as values, coloured cell by cell, written as a picture.
#include "hosts/publish/rasterpicture.h"

#include <cpl_string.h>
#include <gdal_priv.h>
#include <gdal_utils.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <vector>

#include "hosts/data/openpolicy.h"

namespace brelmon::publish {
namespace {

constexpr int kLargestSide = 4096;

[[noreturn]] void Refuse(const std::string& what) {
  const std::string reason = CPLGetLastErrorMsg();
  throw std::runtime_error(reason.empty() ? what : what + ": " + reason);
}

std::string WktOf(const OGRSpatialReference& system) {
  char* text = nullptr;
  const char* const options[] = {"FORMAT=WKT2_2019", nullptr};
  system.exportToWkt(&text, options);
  std::string wkt = text == nullptr ? "" : text;
  CPLFree(text);
  return wkt;
}

GDALDatasetUniquePtr Translated(GDALDataset& raster, const std::vector<int>& bands) {
  CPLStringList words;
  words.AddString("-of");
  words.AddString("VRT");
  for (const int band : bands) {
    words.AddString("-b");
    words.AddString(std::to_string(band).c_str());
  }
  GDALTranslateOptions* options = GDALTranslateOptionsNew(words.List(), nullptr);
  auto* result = GDALTranslate("", GDALDataset::ToHandle(&raster), options, nullptr);
  GDALTranslateOptionsFree(options);
  if (result == nullptr) Refuse("its bands can't be read");
  return GDALDatasetUniquePtr(GDALDataset::FromHandle(result));
}

GDALDatasetUniquePtr Warped(GDALDataset& raster, CPLStringList words) {
  auto* source = GDALDataset::ToHandle(&raster);
  GDALWarpAppOptions* options = GDALWarpAppOptionsNew(words.List(), nullptr);
  auto* result = GDALWarp("", nullptr, 1, &source, options, nullptr);
  GDALWarpAppOptionsFree(options);
  if (result == nullptr) Refuse("it can't be brought into the document's reference system");
  return GDALDatasetUniquePtr(GDALDataset::FromHandle(result));
}

OGREnvelope ExtentOf(GDALDataset& raster) {
  double corner[6] = {};
  raster.GetGeoTransform(corner);
  OGREnvelope box;
  box.MinX = corner[0];
  box.MaxX = corner[0] + corner[1] * raster.GetRasterXSize();
  box.MaxY = corner[3];
  box.MinY = corner[3] + corner[5] * raster.GetRasterYSize();
  return box;
}

/// Where the system is of use, and as much again around it unless that is half the world. Not
/// initialised where that is unknown. Poles are as far away as can be in many systems.
OGREnvelope UseOf(const OGRSpatialReference& system) {
  double west = 0, south = 0, east = 0, north = 0;
  OGREnvelope box;
  if (!system.GetAreaOfUse(&west, &south, &east, &north, nullptr) || west > east) return box;
  OGRSpatialReference degrees;
  degrees.importFromEPSG(4326);
  degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> there(
      OGRCreateCoordinateTransformation(&degrees, &system));
  OGREnvelope use;
  constexpr int kPointsAnEdge = 21;
  if (!there || !there->TransformBounds(west, south, east, north, &use.MinX, &use.MinY, &use.MaxX,
                                        &use.MaxY, kPointsAnEdge)) {
    return box;
  }
  const double around = east - west < 180 ? 1 : 0;
  const double width = (use.MaxX - use.MinX) * around, height = (use.MaxY - use.MinY) * around;
  box = use;
  box.MinX -= width, box.MaxX += width, box.MinY -= height, box.MaxY += height;
  return box;
}

struct Frame {
  OGREnvelope box;
  double width = 0, height = 0;  // pixels
};

/// What GDAL suggests, without what lies far from where the system is of use.
Frame FrameOf(GDALDataset& raster, GDALDataset& suggested, const OGRSpatialReference* to) {
  Frame frame{ExtentOf(suggested), static_cast<double>(suggested.GetRasterXSize()),
              static_cast<double>(suggested.GetRasterYSize())};
  const OGREnvelope use = to == nullptr ? OGREnvelope() : UseOf(*to);
  if (use.IsInit() != 0 && !use.Contains(frame.box) && use.Intersects(frame.box)) {
    frame.box.Intersect(use);
    // The suggested pixels are those of the whole: as many as the raster has will do.
    const double cells = 1.0 * raster.GetRasterXSize() * raster.GetRasterYSize();
    const double aspect = (frame.box.MaxX - frame.box.MinX) / (frame.box.MaxY - frame.box.MinY);
    frame.width = std::sqrt(cells * aspect);
    frame.height = cells / frame.width;
  }
  const double scale = std::min(1.0, kLargestSide / std::max(frame.width, frame.height));
  frame.width = std::max(1.0, std::round(frame.width * scale));
  frame.height = std::max(1.0, std::round(frame.height * scale));
  return frame;
}

/// Values as 32-bit numbers, and a last band that says where there are any.
GDALDatasetUniquePtr InSystem(GDALDataset& raster, const OGRSpatialReference* from,
                              const OGRSpatialReference* to, bool classes) {
  CPLStringList words;
  const auto add = [&words](std::initializer_list<std::string> more) {
    for (const std::string& word : more) words.AddString(word.c_str());
  };
  const OGRSpatialReference* own = from != nullptr ? from : raster.GetSpatialRef();
  if (own != nullptr) add({"-s_srs", WktOf(*own)});
  if (own != nullptr && to != nullptr) add({"-t_srs", WktOf(*to)});
  add({"-ot", "Float32", "-r", classes ? "near" : "bilinear", "-dstalpha"});
  CPLStringList trial = words;
  trial.AddString("-of");
  trial.AddString("VRT");
  const Frame frame = FrameOf(raster, *Warped(raster, trial), own != nullptr ? to : nullptr);
  const auto text = [](double number) { return std::string(CPLSPrintf("%.17g", number)); };
  add({"-te", text(frame.box.MinX), text(frame.box.MinY), text(frame.box.MaxX),
       text(frame.box.MaxY), "-ts", text(frame.width), text(frame.height), "-of", "MEM"});
  return Warped(raster, words);
}

void Complete(RasterStyle& style, GDALDataset& raster) {
  const int bands = raster.GetRasterCount();
  if (bands == 0) Refuse("it has no bands");
  if (!style.Told()) {
    double range[2] = {0, 255};
    const bool bytes = raster.GetRasterBand(1)->GetRasterDataType() == GDT_Byte;
    if (bands >= 3 && bytes) return style.UseColours();
    if (!bytes && raster.GetRasterBand(1)->ComputeRasterMinMax(TRUE, range) != CE_None) {
      Refuse("its values can't be read");
    }
    return style.UseGrey(range[0], range[1]);
  }
  for (const int band : style.Bands()) {
    if (band < 1 || band > bands) Refuse("the project shows a band that it doesn't have");
  }
}

void Colourise(GDALDataset& values, const RasterStyle& style, GDALDataset& picture) {
  const int width = values.GetRasterXSize(), alphaBand = values.GetRasterCount();
  const std::size_t bands = style.Bands().size();
  std::array<std::vector<float>, 4> lines;  // values, and the alpha last
  std::array<std::vector<GByte>, 4> pixels;
  for (auto& line : lines) line.resize(static_cast<std::size_t>(width));
  for (auto& line : pixels) line.resize(static_cast<std::size_t>(width));
  const auto read = [&](int band, int y, std::vector<float>& line) {
    if (values.GetRasterBand(band)->RasterIO(GF_Read, 0, y, width, 1, line.data(), width, 1,
                                             GDT_Float32, 0, 0, nullptr) != CE_None) {
      Refuse("its values can't be read");
    }
  };
  for (int y = 0; y < values.GetRasterYSize(); ++y) {
    for (std::size_t i = 0; i < bands; ++i) read(static_cast<int>(i) + 1, y, lines[i]);
    read(alphaBand, y, lines[3]);
    for (std::size_t x = 0; x < pixels[0].size(); ++x) {
      std::array<double, 3> value{};
      for (std::size_t i = 0; i < bands; ++i) value[i] = lines[i][x];
      const Colour colour = style.ColourOf(value);
      pixels[0][x] = colour.red, pixels[1][x] = colour.green, pixels[2][x] = colour.blue;
      pixels[3][x] = static_cast<GByte>(
          std::lround(colour.alpha * std::clamp(lines[3][x], 0.0F, 255.0F) / 255));
    }
    for (int band = 0; band < 4; ++band) {
      auto& line = pixels[static_cast<std::size_t>(band)];
      if (picture.GetRasterBand(band + 1)->RasterIO(GF_Write, 0, y, width, 1, line.data(), width, 1,
                                                    GDT_Byte, 0, 0, nullptr) != CE_None) {
        Refuse("its picture can't be made");
      }
    }
  }
}

void WritePng(GDALDataset& picture, const std::string& file) {
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("PNG");
  if (driver == nullptr) Refuse("GDAL writes no PNG here");
  // Nothing beside the picture.
  const CPLConfigOptionSetter plain("GDAL_PAM_ENABLED", "NO", false);
  CPLErrorReset();
  GDALDatasetUniquePtr written(
      driver->CreateCopy(file.c_str(), &picture, FALSE, nullptr, nullptr, nullptr));
  if (!written) Refuse("its picture can't be written");
  written.reset();
  if (CPLGetLastErrorType() >= CE_Failure) Refuse("its picture can't be written");
}

}  // namespace

std::array<double, 4> WritePicture(const std::string& raster, RasterStyle style,
                                   const OGRSpatialReference* from, const OGRSpatialReference* to,
                                   const std::string& file) {
  CPLErrorReset();
  data::SourceAddress address;
  address.path = raster;
  std::string problem;
  const GDALDatasetUniquePtr opened = data::OpenData(address, data::Content::Pixels, problem);
  if (!opened) Refuse("it can't be opened");
  Complete(style, *opened);
  std::vector<int> bands = style.Bands();
  const int last = opened->GetRasterCount();
  if (opened->GetRasterBand(last)->GetColorInterpretation() == GCI_AlphaBand) bands.push_back(last);
  const GDALDatasetUniquePtr chosen = Translated(*opened, bands);
  const GDALDatasetUniquePtr values = InSystem(*chosen, from, to, style.IsOfClasses());
  const GDALDatasetUniquePtr picture(GetGDALDriverManager()->GetDriverByName("MEM")->Create(
      "", values->GetRasterXSize(), values->GetRasterYSize(), 4, GDT_Byte, nullptr));
  if (!picture) Refuse("its picture can't be made");
  Colourise(*values, style, *picture);
  WritePng(*picture, file);
  const OGREnvelope box = ExtentOf(*values);
  return {box.MinX, box.MinY, box.MaxX, box.MaxY};
}

}  // namespace brelmon::publish
