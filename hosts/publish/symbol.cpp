// SPDX-License-Identifier: GPL-2.0-or-later
// Simple markers, lines and fills.
#include "hosts/publish/symbol.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <vector>

namespace brelmon::publish {
namespace {

using Properties = std::map<std::string, std::string>;

constexpr double kPixelsAnInch = 96;

/// In both forms that they have been written in.
Properties PropertiesOf(const pugi::xml_node& layer) {
  Properties properties;
  for (const pugi::xml_node& each : layer.children("prop")) {
    properties[each.attribute("k").as_string()] = each.attribute("v").as_string();
  }
  for (const pugi::xml_node& each : layer.child("Option").children("Option")) {
    properties[each.attribute("name").as_string()] = each.attribute("value").as_string();
  }
  return properties;
}

std::vector<double> NumbersIn(const std::string& text) {
  std::vector<double> numbers;
  const char* at = text.c_str();
  while (*at != '\0') {
    char* end = nullptr;
    const double number = std::strtod(at, &end);
    if (end == at) {
      ++at;
      continue;
    }
    numbers.push_back(number);
    at = end;
  }
  return numbers;
}

/// "r,g,b,a" as "#rrggbbaa"; nothing for a colour that can't be seen.
std::optional<std::string> Colour(const std::string& text, double alpha) {
  const std::vector<double> parts = NumbersIn(text);
  if (parts.size() < 3) return {};
  std::array<unsigned, 4> bytes{};
  for (std::size_t i = 0; i < 4; ++i) {
    const double part = i == 3 ? (parts.size() > 3 ? parts[3] : 255) * alpha : parts[i];
    bytes[i] = static_cast<unsigned>(std::lround(std::clamp(part, 0.0, 255.0)));
  }
  if (bytes[3] == 0) return {};
  char hex[16];
  std::snprintf(hex, sizeof hex, "#%02x%02x%02x%02x", bytes[0], bytes[1], bytes[2], bytes[3]);
  return hex;
}

double PixelsOf(const std::string& unit) {
  if (unit == "Pixel") return 1;
  if (unit == "Point") return kPixelsAnInch / 72;
  if (unit == "Inch") return kPixelsAnInch;
  return unit == "MM" || unit.empty() ? kPixelsAnInch / 25.4 : 0;
}

class SymbolReader {
 public:
  explicit SymbolReader(const pugi::xml_node& xml) : alpha_(xml.attribute("alpha").as_double(1)) {
    for (const pugi::xml_node& layer : xml.children("layer")) {
      if (layer.attribute("enabled").as_bool(true)) Read(layer);
    }
  }
  const Json& Symbol() const { return symbol_; }
  const std::string& Loss() const { return loss_; }

 private:
  void Lose(const std::string& what) {
    if (loss_.empty()) loss_ = what;
  }

  void Read(const pugi::xml_node& xml) {
    const std::string kind = xml.attribute("class").as_string();
    values_ = PropertiesOf(xml);
    const pugi::xml_node data = xml.child("data_defined_properties").child("Option");
    if (data.find_child_by_attribute("Option", "name", "properties").first_child()) {
      Lose("what its symbols take from the data isn't shown");
    }
    if (symbol_.is_object() && kind != "SimpleLine") {
      Lose("of its symbols of several layers the lowest alone is shown");
    } else if (kind == "SimpleMarker") {
      ReadMarker();
    } else if (kind == "SimpleLine") {
      ReadLine();
    } else if (kind == "SimpleFill") {
      ReadFill();
    } else {
      Lose("its symbols are more than simple ones (" + kind + "); they are drawn plainly");
    }
  }

  /// In pixels; one where it is measured on the ground.
  double Length(const char* key, const char* unitKey, double otherwise) {
    const auto text = values_.find(key);
    if (text == values_.end()) return otherwise;
    const double factor = PixelsOf(values_[unitKey]);
    if (factor == 0) Lose("sizes on the ground aren't kept");
    const double length = std::strtod(text->second.c_str(), nullptr) * factor;
    return factor == 0 ? otherwise : std::round(length * 100) / 100;
  }

  void PutStroke(const char* colour, const char* style, const char* width, const char* unit) {
    if (values_[style] == "no") return;
    const auto stroke = Colour(values_[colour], alpha_);
    if (!stroke) return;
    symbol_["stroke"] = *stroke;
    // A line without a width is a hair of one pixel.
    const double pixels = Length(width, unit, 1);
    symbol_["width"] = pixels > 0 ? pixels : 1;
    PutDash(values_[style], symbol_["width"].get<double>());
  }

  void PutDash(const std::string& style, double width) {
    static const std::map<std::string, std::vector<double>> kPatterns = {
        {"dash", {4, 2}},
        {"dot", {1, 2}},
        {"dash dot", {4, 2, 1, 2}},
        {"dash dot dot", {4, 2, 1, 2, 1, 2}}};
    Json dash = Json::array();
    if (values_["use_customdash"] == "1") {
      const double factor = PixelsOf(values_["customdash_unit"]);
      for (const double part : NumbersIn(values_["customdash"])) dash.push_back(part * factor);
    } else if (const auto pattern = kPatterns.find(style); pattern != kPatterns.end()) {
      for (const double part : pattern->second) dash.push_back(part * width);
    }
    if (!dash.empty()) symbol_["dash"] = dash;
  }

  void ReadMarker() {
    static const std::map<std::string, const char*> kShapes = {{"circle", "circle"},
                                                               {"square", "square"},
                                                               {"rectangle", "square"},
                                                               {"diamond", "diamond"},
                                                               {"triangle", "triangle"},
                                                               {"equilateral_triangle", "triangle"},
                                                               {"star", "star"},
                                                               {"regular_star", "star"},
                                                               {"cross", "cross"},
                                                               {"cross2", "x"},
                                                               {"x", "x"}};
    symbol_ = Json::object();
    const std::string name = values_["name"];
    const auto shape = kShapes.find(name);
    if (shape == kShapes.end()) Lose("its markers \"" + name + "\" are drawn as circles");
    symbol_["shape"] = shape == kShapes.end() ? "circle" : shape->second;
    symbol_["size"] = Length("size", "size_unit", 7);
    if (const auto fill = Colour(values_["color"], alpha_)) symbol_["fill"] = *fill;
    PutStroke("outline_color", "outline_style", "outline_width", "outline_width_unit");
  }

  /// The outline of a polygon may be a layer of its own.
  void ReadLine() {
    if (symbol_.is_object() && symbol_.contains("stroke")) {
      return Lose("of its symbols of several layers the lowest alone is shown");
    }
    if (!symbol_.is_object()) symbol_ = Json::object();
    PutStroke("line_color", "line_style", "line_width", "line_width_unit");
  }

  void ReadFill() {
    symbol_ = Json::object();
    const std::string style = values_["style"];
    const auto fill = Colour(values_["color"], alpha_);
    if (fill && style != "no") symbol_["fill"] = *fill;
    if (style != "no" && style != "solid" && !style.empty()) {
      Lose("its hatched fills are shown as plain ones");
    }
    PutStroke("outline_color", "outline_style", "outline_width", "outline_width_unit");
  }

  double alpha_;
  Properties values_;
  Json symbol_;
  std::string loss_;
};

}  // namespace

Json SymbolOf(const pugi::xml_node& symbol, std::string& loss) {
  const SymbolReader reader(symbol);
  loss = reader.Loss();
  return reader.Symbol();
}

}  // namespace brelmon::publish
