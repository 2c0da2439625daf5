// SPDX-License-Identifier: GPL-2.0-or-later
// Colours, fonts, pointers and texts of controls in Qt's terms.
#pragma once

#include <QFont>

#include "toolkit/control.h"

class QWidget;

namespace brelmon::qgis {

bool IsDark(const QColor& colour);
/// What dialogs of QGIS have behind their controls, in the theme of this moment.
QColor GroundColour();
/// `font` on top of what the widget would have by itself.
QFont FontOf(const Font& font, const QFont& base);
/// Colours, pointer, tip, accessible name and description, enabled and visible.
void ShowLook(Control& control, QWidget& widget);
void ShowState(Control& control, QWidget& widget);

/// The caption without its accelerator marks.
QString PlainCaption(const Text& caption);
bool HasAccelerator(const Text& caption);

}  // namespace brelmon::qgis
