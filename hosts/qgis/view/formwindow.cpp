// SPDX-License-Identifier: GPL-2.0-or-later
// What all windows that hold a form have in common.
#include "hosts/qgis/view/formwindow.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/formview.h"

namespace brelmon::qgis {
namespace {

constexpr QSize kSmallest{120, 90};

void ShowGround(FormView& view, Colour colour) {
  QPalette palette;
  if (colour != colour::kDefault) {
    palette.setColor(QPalette::Window,
                     QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
  }
  view.setAutoFillBackground(colour != colour::kDefault);
  view.setPalette(palette);
}

}  // namespace

void FitWindow(QWidget& window, FormView& view, Form& form) {
  window.setWindowTitle(ToQt(form.Caption()));
  ShowGround(view, form.BackColor());
  const QSize size = view.FormSize();
  if (form.Sizable()) {
    window.setMinimumSize(kSmallest);
    window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window.resize(size);
  } else {
    window.setFixedSize(size);
  }
  view.setGeometry(0, 0, size.width(), size.height());
}

}  // namespace brelmon::qgis
