// SPDX-License-Identifier: GPL-2.0-or-later
// The renderers of rasters that need nothing but the value of a cell.
#include "hosts/publish/rasterstyle.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <pugixml.hpp>

namespace brelmon::publish {
namespace {

constexpr Colour kNothing{0, 0, 0, 0};

/// "#rrggbb" and an alpha beside it.
Colour ColourOfItem(const pugi::xml_node& item) {
  const std::string text = item.attribute("color").as_string("#000000");
  const unsigned long bytes = std::strtoul(text.c_str() + (text[0] == '#'), nullptr, 16);
  return {static_cast<std::uint8_t>(bytes >> 16), static_cast<std::uint8_t>(bytes >> 8),
          static_cast<std::uint8_t>(bytes),
          static_cast<std::uint8_t>(std::clamp(item.attribute("alpha").as_int(255), 0, 255))};
}

std::uint8_t Mixed(std::uint8_t from, std::uint8_t to, double share) {
  return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
}

bool IsChanged(const pugi::xml_node& pipe) {
  const pugi::xml_node light = pipe.child("brightnesscontrast");
  const pugi::xml_node hue = pipe.child("huesaturation");
  return light.attribute("brightness").as_int() != 0 || light.attribute("contrast").as_int() != 0 ||
         light.attribute("gamma").as_double(1) != 1 || hue.attribute("saturation").as_int() != 0 ||
         hue.attribute("grayscaleMode").as_int() != 0 ||
         hue.attribute("colorizeOn").as_int() != 0 || hue.attribute("invertColors").as_int() != 0;
}

}  // namespace

std::uint8_t RasterStyle::Stretch::operator()(double value) const {
  const double span = maximum - minimum;
  const double byte = on && span > 0 ? (value - minimum) / span * 255 : value;
  return static_cast<std::uint8_t>(std::lround(std::clamp(byte, 0.0, 255.0)));
}

RasterStyle::Stretch RasterStyle::StretchOf(const pugi::xml_node& enhancement) {
  Stretch stretch;
  if (!enhancement || std::string(enhancement.child_value("algorithm")) == "NoEnhancement") {
    return stretch;
  }
  stretch.on = true;
  stretch.minimum = enhancement.child("minValue").text().as_double();
  stretch.maximum = enhancement.child("maxValue").text().as_double(255);
  return stretch;
}

RasterStyle::RasterStyle(const pugi::xml_node& layer, std::string& loss) {
  const pugi::xml_node pipe = layer.child("pipe");
  const pugi::xml_node renderer = pipe.child("rasterrenderer");
  const std::string type = renderer.attribute("type").as_string();
  opacity_ = std::clamp(renderer.attribute("opacity").as_double(1), 0.0, 1.0);
  if (type == "singlebandgray") {
    kind_ = Kind::Grey;
    bands_ = {renderer.attribute("grayBand").as_int(1)};
    whiteToBlack_ = std::string(renderer.attribute("gradient").as_string()) == "WhiteToBlack";
    stretches_[0] = StretchOf(renderer.child("contrastEnhancement"));
  } else if (type == "multibandcolor") {
    kind_ = Kind::Colours;
    bands_ = {renderer.attribute("redBand").as_int(1), renderer.attribute("greenBand").as_int(2),
              renderer.attribute("blueBand").as_int(3)};
    stretches_ = {StretchOf(renderer.child("redContrastEnhancement")),
                  StretchOf(renderer.child("greenContrastEnhancement")),
                  StretchOf(renderer.child("blueContrastEnhancement"))};
  } else if (type == "paletted") {
    kind_ = Kind::Classes;
    bands_ = {renderer.attribute("band").as_int(1)};
    for (const auto& entry : renderer.child("colorPalette").children("paletteEntry")) {
      steps_.push_back({entry.attribute("value").as_double(), ColourOfItem(entry)});
    }
  } else if (type == "singlebandpseudocolor") {
    ReadRamp(renderer);
  } else if (renderer) {
    loss = "its renderer \"" + type + "\" is none that can be published; its picture is grey";
  }
  if (loss.empty() && IsChanged(pipe)) loss = "its brightness, contrast and hue aren't kept";
  std::stable_sort(steps_.begin(), steps_.end(),
                   [](const Step& one, const Step& other) { return one.value < other.value; });
}

void RasterStyle::ReadRamp(const pugi::xml_node& renderer) {
  kind_ = Kind::Ramp;
  bands_ = {renderer.attribute("band").as_int(1)};
  const pugi::xml_node shader = renderer.child("rastershader").child("colorrampshader");
  const std::string type = shader.attribute("colorRampType").as_string("INTERPOLATED");
  between_ = type == "DISCRETE" ? Between::Discrete
             : type == "EXACT"  ? Between::Exact
                                : Between::Interpolated;
  clips_ = shader.attribute("clip").as_bool();
  for (const auto& item : shader.children("item")) {
    // The last class of steps has no upper end ("inf").
    steps_.push_back(
        {std::strtod(item.attribute("value").as_string(), nullptr), ColourOfItem(item)});
  }
}

void RasterStyle::UseGrey(double minimum, double maximum) {
  kind_ = Kind::Grey;
  bands_ = {1};
  stretches_[0] = {true, minimum, maximum};
}

void RasterStyle::UseColours() {
  kind_ = Kind::Colours;
  bands_ = {1, 2, 3};
}

Colour RasterStyle::OnRamp(double value) const {
  const auto above =
      std::lower_bound(steps_.begin(), steps_.end(), value,
                       [](const Step& step, double wanted) { return step.value < wanted; });
  if (above != steps_.end() && above->value == value) return above->colour;
  if (between_ == Between::Exact || kind_ == Kind::Classes || steps_.empty()) return kNothing;
  if (between_ == Between::Discrete) return above == steps_.end() ? kNothing : above->colour;
  if (above == steps_.end()) return clips_ ? kNothing : steps_.back().colour;
  if (above == steps_.begin()) return clips_ ? kNothing : steps_.front().colour;
  const Step &from = *(above - 1), &to = *above;
  const double share = (value - from.value) / (to.value - from.value);
  return {Mixed(from.colour.red, to.colour.red, share),
          Mixed(from.colour.green, to.colour.green, share),
          Mixed(from.colour.blue, to.colour.blue, share),
          Mixed(from.colour.alpha, to.colour.alpha, share)};
}

Colour RasterStyle::ColourOf(const std::array<double, 3>& values) const {
  if (!std::isfinite(values[0])) return kNothing;
  if (kind_ == Kind::Colours) {
    return {stretches_[0](values[0]), stretches_[1](values[1]), stretches_[2](values[2]), 255};
  }
  if (kind_ != Kind::Grey) return OnRamp(values[0]);
  const std::uint8_t light = stretches_[0](values[0]);
  const auto grey = static_cast<std::uint8_t>(whiteToBlack_ ? 255 - light : light);
  return {grey, grey, grey, 255};
}

}  // namespace brelmon::publish
