// SPDX-License-Identifier: GPL-2.0-or-later
// Capturing a control's place and applying it to a container of another size.
#include "forms/AnchorObject.h"

#include <cmath>
#include <limits>

#include "frame/guard.h"

namespace brelmon {

namespace {

double Quotient(double dividend, double divisor) {
  if (divisor == 0) Raise(dividend == 0 ? failure::kOverflow : failure::kDivisionByZero);
  return dividend / divisor;
}

float Single(double value) {
  if (std::abs(value) > std::numeric_limits<float>::max()) Raise(failure::kOverflow);
  return static_cast<float>(value);
}

}  // namespace

/// What an axis reads, writes and captures. Arithmetic is in doubles; places and captured values
/// are kept in single precision.
struct AnchorObject::Axis {
  const AnchorObject& object;
  Anchor& first;
  Anchor& second;
  Anchor& size;
  Twips (brelmon::Control::*position)();
  Twips (brelmon::Control::*extent)();
  void (brelmon::Control::*setPosition)(Twips);
  void (brelmon::Control::*setExtent)(Twips);
  Twips (Container::*whole)();

  double Position() const { return (object.Control().*position)(); }
  double Extent() const { return (object.Control().*extent)(); }
  double Whole() const { return (object.Control().Container().*whole)(); }
  void MoveTo(double twips) const { (object.Control().*setPosition)(Single(twips)); }
  void SizeTo(double twips) const { (object.Control().*setExtent)(Single(twips)); }

  void Capture(std::int32_t kind) const;
  void Apply() const;
};

void AnchorObject::Axis::Capture(std::int32_t kind) const {
  first.AnchorType = kind;
  switch (kind) {
    case AnchorScaled:
      first.Value = Single(Quotient(Position(), Whole()));
      size.Value = Single(Quotient(Extent(), Whole()));
      break;
    case AnchorFixedScaled:
      first.Value = Single(Position());
      size.Value = Single(Quotient(Extent(), Whole()));
      break;
    case AnchorFixed:
      first.Value = Single(Position());
      size.Value = Single(Extent());
      break;
    case AnchorStretch:
      first.Value = Single(Position());
      size.Value = Single(Whole() - Extent());
      break;
    case AnchorCentred:
      first.Value = Single(Quotient(Position() + Extent() / 2, Whole()));
      second.Value = Single(Extent() / 2);
      break;
    case AnchorFarEdge:
      first.Value = Single(Whole() - Position());
      break;
    case AnchorFarScaled:
      first.Value = Single(Quotient(Extent(), Whole()));
      second.Value = Single(Whole() - Extent() - Position());
      size.Value = Single(Quotient(Extent(), Whole()));
      break;
    default:
      break;
  }
}

void AnchorObject::Axis::Apply() const {
  const double at = first.Value;
  switch (first.AnchorType) {
    case AnchorScaled:
      Guard::Ignore([&] { MoveTo(at * Whole()); });
      Guard::Ignore([&] { SizeTo(size.Value * Whole()); });
      break;
    case AnchorFixedScaled:
      Guard::Ignore([&] { SizeTo(size.Value * Whole()); });
      break;
    case AnchorStretch:
      Guard::Ignore([&] { SizeTo(Whole() - size.Value); });
      break;
    case AnchorCentred:
      Guard::Ignore([&] { MoveTo(at * Whole() - second.Value); });
      break;
    case AnchorFarEdge:
      Guard::Ignore([&] { MoveTo(Whole() - at); });
      break;
    case AnchorFarScaled:
      Guard::Ignore([&] { MoveTo(Whole() - at * Whole() - second.Value); });
      Guard::Ignore([&] { SizeTo(size.Value * Whole()); });
      break;
    default:
      break;
  }
}

AnchorObject::Axis AnchorObject::Horizontal() {
  using C = brelmon::Control;
  return {*this,       x_,           x2_,
          xSize_,      &C::Left,     &C::Width,
          &C::SetLeft, &C::SetWidth, &Container::ContainerWidth};
}

AnchorObject::Axis AnchorObject::Vertical() {
  using C = brelmon::Control;
  return {*this,
          y_,
          y2_,
          ySize_,
          &C::Top,
          &C::Height,
          &C::SetTop,
          &C::SetHeight,
          &Container::ContainerHeight};
}

brelmon::Control& AnchorObject::Control() const {
  if (!control_) Raise(other_ ? failure::kNoSuchProperty : failure::kObjectNotSet);
  return *control_;
}

void AnchorObject::SetAnchors(std::int32_t XType, std::int32_t YType) {
  Horizontal().Capture(XType);
  Vertical().Capture(YType);
}

void AnchorObject::DoAnchors() {
  Horizontal().Apply();
  Vertical().Apply();
}

}  // namespace brelmon
