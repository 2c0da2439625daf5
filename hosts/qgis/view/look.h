// SPDX-License-Identifier: GPL-2.0-or-later
// Colours, fonts, pictures, pointers and texts of controls in Qt's terms.
#pragma once

#include <QCursor>
#include <QFont>
#include <QIcon>
#include <QPixmap>

#include "toolkit/control.h"

class QWidget;

namespace brelmon::qgis {

/// A bitmap file with its key colour, magenta, made transparent.
QPixmap PixmapOf(const std::string& bitmapFile);
/// The same on a high-density screen: scaled by whole numbers, unsmoothed.
QIcon IconOf(const std::string& bitmapFile);
QCursor CursorOf(const std::string& cursorFile);

/// `font` on top of what the widget would have by itself.
QFont FontOf(const Font& font, const QFont& base);
/// Colours, pointer, tip, accessible name and description, enabled and visible.
void ShowLook(Control& control, QWidget& widget);
void ShowState(Control& control, QWidget& widget);

/// The caption without its accelerator marks.
QString PlainCaption(const Text& caption);
bool HasAccelerator(const Text& caption);

}  // namespace brelmon::qgis
