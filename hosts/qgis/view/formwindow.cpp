// SPDX-License-Identifier: GPL-2.0-or-later
// Windows and the forms in them: title, size, scrolling.
#include "hosts/qgis/view/formwindow.h"

#include <QApplication>
#include <QPalette>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/formview.h"

namespace brelmon::qgis {
namespace {

constexpr QSize kSmallest{120, 90};
constexpr double kLeastShare = 0.6;  // of its first size, for a window that can be sized

void ShowGround(FormView& view, Colour colour) {
  QPalette palette;
  if (colour != colour::kDefault) {
    palette.setColor(QPalette::Window,
                     QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
  }
  view.setAutoFillBackground(colour != colour::kDefault);
  view.setPalette(palette);
}

/// What the screen leaves for the inside of a window.
QSize RoomFor(const QWidget& window) {
  const QWidget* shown = window.isVisible() ? &window : OwnerWindow();
  const QScreen* screen = shown ? shown->screen() : QApplication::primaryScreen();
  const int title = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return screen->availableGeometry().size() - QSize(4, title + 8);
}

int ThicknessOf(QScrollBar& bar) {
  bar.ensurePolished();  // a theme has its own
  const QSize hint = bar.sizeHint();
  return std::max(std::min(hint.width(), hint.height()),
                  bar.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &bar));
}

}  // namespace

FormArea::FormArea(QWidget& window, Form& form) : QScrollArea(&window), form_(form) {
  setFrameShape(QFrame::NoFrame);
  // A theme's margins would make it scroll for nothing.
  setObjectName(QStringLiteral("qt_form_area"));
  setStyleSheet(QStringLiteral("#qt_form_area{border:0;padding:0;margin:0}"));
}

void FormArea::Hold(FormView& view) {
  view_ = &view;
  setWidget(view_);
  // A theme would give the ground of its lists to what lies below the form.
  viewport()->setAutoFillBackground(false);
  Fit();
}

void FormArea::Fit() {
  if (!view_) return;
  QWidget& window = *parentWidget();
  window.setWindowTitle(ToQt(form_.Caption()));
  ShowGround(*view_, form_.BackColor());
  const QSize size = view_->FormSize(), room = RoomFor(window);
  QSize outer = size.boundedTo(room);
  if (size.height() > room.height()) {
    outer.setWidth(std::min(size.width() + ThicknessOf(*verticalScrollBar()), room.width()));
  }
  if (size.width() > room.width()) {
    outer.setHeight(std::min(size.height() + ThicknessOf(*horizontalScrollBar()), room.height()));
  }
  scrolls_ = outer != size;
  view_->resize(size);
  if (form_.Sizable()) {
    if (smallest_.isEmpty()) smallest_ = (outer * kLeastShare).expandedTo(kSmallest);
    window.setMinimumSize(smallest_);
    window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window.resize(outer);
  } else {
    window.setFixedSize(outer);
  }
  setGeometry(QRect(QPoint(), outer));
}

void FormArea::WindowResized(const QSize& size) {
  setGeometry(QRect(QPoint(), size));
  const QSize form = view_->FormSize();
  if (scrolls_ && (size.width() < form.width() || size.height() < form.height())) return;
  scrolls_ = false;
  view_->resize(size);
  if (isVisible()) view_->UserResize(size);
}

}  // namespace brelmon::qgis
