// SPDX-License-Identifier: GPL-2.0-or-later
// Twips and pixels: the scale at which no caption is cut, and the places of widgets.
#include <algorithm>
#include <cmath>

#include "hosts/qgis/view/formview.h"
#include "hosts/qgis/view/look.h"

namespace brelmon::qgis {
namespace {

constexpr double kLargestGrowth = 1.8, kGrowthStep = 0.04;

int Rounded(double pixels) { return static_cast<int>(std::lround(pixels)); }

}  // namespace

int FormView::Pixels(Twips length) const { return Rounded(static_cast<double>(length) * scale_); }

Twips FormView::ToTwips(int pixels) const {
  // Whole pixels at 96 dots an inch, so that a size there and back stays the same.
  const double at96 = pixels / scale_ / kTwipsPerPixel;
  return static_cast<Twips>(std::lround(at96) * kTwipsPerPixel);
}

QSize FormView::FormSize() { return {Pixels(form_.Width()), Pixels(form_.Height())}; }

bool FormView::Fits(double scale) const {
  return std::all_of(shown_.begin(), shown_.end(), [scale](const Shown& shown) {
    if (!shown.control->Visible()) return true;
    // Edges are rounded one by one, so a control may be a pixel smaller than its size.
    const int width = static_cast<int>(static_cast<double>(shown.control->Width()) * scale);
    const int height = static_cast<int>(static_cast<double>(shown.control->Height()) * scale);
    const QSize needed = shown.view->Needed(width);
    return needed.width() <= width && needed.height() <= height;
  });
}

void FormView::FitScale() {
  const double least = logicalDpiX() / 96.0 / kTwipsPerPixel;
  const double most = least * kLargestGrowth;
  scale_ = std::max(scale_, least);
  while (!Fits(scale_) && scale_ + least * kGrowthStep <= most) scale_ += least * kGrowthStep;
}

void FormView::Place(Shown& shown) {
  Control& control = *shown.control;
  const int left = Pixels(control.Left()), top = Pixels(control.Top());
  const int right = Pixels(control.Left() + control.Width());
  const int bottom = Pixels(control.Top() + control.Height());
  shown.view->Widget().setGeometry(left, top, right - left, bottom - top);
}

void FormView::PlaceAll() {
  for (Shown& shown : shown_) {
    Place(shown);
    shown.view->Rescale();
  }
}

void FormView::UserResize(const QSize& size) {
  if (!Open() || size == FormSize()) return;
  resizing_ = true;
  Do([&] { form_.Resize(ToTwips(size.width()), ToTwips(size.height())); });
  resizing_ = false;
  if (Open()) PlaceAll();
}

}  // namespace brelmon::qgis
