// SPDX-License-Identifier: GPL-2.0-or-later
// How a project colours a raster's values.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace pugi {
class xml_node;
}

namespace brelmon::publish {

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0, alpha = 255;
};

/// From a value of one band, or three, to a colour.
class RasterStyle {
 public:
  /// Of a raster's <maplayer>. `loss` says what is not kept.
  RasterStyle(const pugi::xml_node& layer, std::string& loss);

  /// Whether it tells anything: otherwise a picture is grey, or its first three bands' colours.
  bool Told() const { return kind_ != Kind::None; }
  /// One or three, from 1.
  const std::vector<int>& Bands() const { return bands_; }
  double Opacity() const { return opacity_; }
  /// Whether values between two others mean nothing.
  bool IsOfClasses() const { return kind_ == Kind::Classes; }

  /// In place of what the project doesn't tell.
  void UseGrey(double minimum, double maximum);
  void UseColours();

  /// As many values as bands.
  Colour ColourOf(const std::array<double, 3>& values) const;

 private:
  enum class Kind { None, Grey, Colours, Classes, Ramp };
  enum class Between { Interpolated, Discrete, Exact };
  struct Stretch {
    bool on = false;
    double minimum = 0, maximum = 255;
    std::uint8_t operator()(double value) const;
  };
  struct Step {
    double value = 0;
    Colour colour;
  };
  static Stretch StretchOf(const pugi::xml_node& enhancement);
  void ReadRamp(const pugi::xml_node& renderer);
  Colour OnRamp(double value) const;

  Kind kind_ = Kind::None;
  std::vector<int> bands_;
  double opacity_ = 1;
  bool whiteToBlack_ = false, clips_ = false;
  std::array<Stretch, 3> stretches_;
  std::vector<Step> steps_;  // ascending
  Between between_ = Between::Exact;
};

}  // namespace brelmon::publish
