// SPDX-License-Identifier: GPL-2.0-or-later
// Pictures and cursors of the component in Qt's terms.
#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>

#include "toolkit/appearance.h"

namespace brelmon::qgis {

/// Of its bitmap, at 96 dots an inch.
QSize NaturalSize(const PictureData& picture);
/// Its drawing in the colours of QGIS's theme, else its bitmap with magenta made transparent.
QPixmap PixmapOf(const PictureData& picture, const QSize& size);
/// The same at whatever size and density it is asked for.
QIcon IconOf(const PictureData& picture);
QCursor CursorOf(const std::string& cursorFile);

}  // namespace brelmon::qgis
