// SPDX-License-Identifier: GPL-2.0-or-later
// Well-known texts of shapes in two dimensions.
#include <cctype>
#include <charconv>
#include <stdexcept>

#include "hosts/web/shapes.h"

namespace brelmon::web {
namespace {

class Reader {
 public:
  explicit Reader(const std::string& text) : text_(text), at_(text.data()) {}

  ShapeStore Read() {
    const std::string name = Word();
    if (name == "POINT") {
      Part();
      shape_.EndShape(ShapeKind::Points);
    } else if (name == "MULTIPOINT") {
      Points();
      shape_.EndShape(ShapeKind::Points);
    } else if (name == "LINESTRING") {
      Part();
      shape_.EndShape(ShapeKind::Lines);
    } else if (name == "MULTILINESTRING" || name == "POLYGON") {
      List([this] { Part(); });
      shape_.EndShape(name == "POLYGON" ? ShapeKind::Polygons : ShapeKind::Lines);
    } else if (name == "MULTIPOLYGON") {
      List([this] { List([this] { Part(); }); });
      shape_.EndShape(ShapeKind::Polygons);
    } else {
      Refuse();
    }
    Skip();
    if (at_ != End() || shape_.kinds[0] == ShapeKind::None) Refuse();
    return std::move(shape_);
  }

 private:
  const char* End() const { return text_.data() + text_.size(); }
  [[noreturn]] void Refuse() const {
    throw std::runtime_error("not a well-known text of a shape: " + text_);
  }
  void Skip() {
    while (at_ != End() && std::isspace(static_cast<unsigned char>(*at_)) != 0) ++at_;
  }
  bool Take(char mark) {
    Skip();
    if (at_ == End() || *at_ != mark) return false;
    ++at_;
    return true;
  }
  std::string Word() {
    Skip();
    std::string word;
    while (at_ != End() && std::isalpha(static_cast<unsigned char>(*at_)) != 0) {
      word += static_cast<char>(std::toupper(static_cast<unsigned char>(*at_++)));
    }
    return word;
  }
  double Number() {
    Skip();
    double number = 0;
    const auto [stop, error] = std::from_chars(at_, End(), number);
    if (error != std::errc()) Refuse();
    at_ = stop;
    return number;
  }
  template <class Each>
  void List(Each each) {
    if (!Take('(')) Refuse();
    do each();
    while (Take(','));
    if (!Take(')')) Refuse();
  }
  void OnePoint() {
    const double x = Number();
    shape_.AddPoint(x, Number());
  }
  void Part() {
    List([this] { OnePoint(); });
    shape_.EndPart();
  }
  /// With or without parentheses around each.
  void Points() {
    List([this] {
      const bool wrapped = Take('(');
      OnePoint();
      if (wrapped && !Take(')')) Refuse();
    });
    shape_.EndPart();
  }

  const std::string& text_;
  const char* at_;
  ShapeStore shape_;
};

}  // namespace

ShapeStore ShapeOfWkt(const std::string& wkt) { return Reader(wkt).Read(); }

}  // namespace brelmon::web
