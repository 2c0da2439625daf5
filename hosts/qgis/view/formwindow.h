// SPDX-License-Identifier: GPL-2.0-or-later
// What all windows that hold a form have in common.
#pragma once

#include <QScrollArea>

namespace brelmon {
class Form;
}

namespace brelmon::qgis {

class FormView;

/// All of a window that holds a form. Where the screen is too small for the form it scrolls.
class FormArea : public QScrollArea {
 public:
  FormArea(QWidget& window, Form& form);
  /// Takes the form's view, once.
  void Hold(FormView& view);
  /// Gives the window the form's caption, size and kind of border.
  void Fit();
  /// To be called when the window has another size.
  void WindowResized(const QSize& size);

 private:
  Form& form_;
  FormView* view_ = nullptr;
  bool scrolls_ = false;
  QSize smallest_;
};

}  // namespace brelmon::qgis
