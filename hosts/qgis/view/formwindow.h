// SPDX-License-Identifier: GPL-2.0-or-later
// What all windows that hold a form have in common.
#pragma once

class QWidget;

namespace brelmon {
class Form;
}

namespace brelmon::qgis {

class FormView;

/// Gives the window the form's caption, size and kind of border.
void FitWindow(QWidget& window, FormView& view, Form& form);

}  // namespace brelmon::qgis
