// SPDX-License-Identifier: GPL-2.0-or-later
// The looks of controls in Qt's terms.
#include "hosts/qgis/view/look.h"

#include <QBitmap>
#include <QBuffer>
#include <QFontDatabase>
#include <QImage>
#include <QImageReader>
#include <QPalette>
#include <QWidget>

#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

constexpr QRgb kKeyColour = 0xFFFF00FF;

QColor ColourOf(Colour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QImage ImageOf(const std::string& bitmapFile) {
  QImage image;
  image.loadFromData(reinterpret_cast<const uchar*>(bitmapFile.data()),
                     static_cast<int>(bitmapFile.size()), "BMP");
  if (image.isNull()) return image;
  image = image.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if ((line[x] | 0xFF000000) == kKeyColour) line[x] = 0;
    }
  }
  return image;
}

void SetColours(Control& control, QWidget& widget) {
  QPalette palette;
  const Colour fore = control.ForeColor();
  const Colour back = control.BackColor();
  if (fore != colour::kDefault) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      palette.setColor(role, ColourOf(fore));
    }
  }
  if (back != colour::kDefault) {
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
      palette.setColor(role, ColourOf(back));
    }
  }
  const ControlKind kind = control.Kind();
  const bool ground =
      kind == ControlKind::Label || kind == ControlKind::PictureBox || kind == ControlKind::Frame;
  widget.setAutoFillBackground(ground && back != colour::kDefault);
  widget.setPalette(palette);
}

}  // namespace

QPixmap PixmapOf(const std::string& bitmapFile) { return QPixmap::fromImage(ImageOf(bitmapFile)); }

QIcon IconOf(const std::string& bitmapFile) {
  const QImage image = ImageOf(bitmapFile);
  QIcon icon;
  if (image.isNull()) return icon;
  for (int factor = 1; factor <= 4; ++factor) {
    icon.addPixmap(QPixmap::fromImage(
        image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation)));
  }
  return icon;
}

// A cursor file is an icon file of another type, with a hot spot where that has its colours.
QCursor CursorOf(const std::string& cursorFile) {
  constexpr std::size_t kTypeAt = 2, kHotSpotAt = 10, kHeader = 22;
  if (cursorFile.size() < kHeader) return {};
  const auto word = [&](std::size_t at) {
    return static_cast<unsigned char>(cursorFile[at]) |
           static_cast<unsigned char>(cursorFile[at + 1]) << 8;
  };
  const int x = word(kHotSpotAt), y = word(kHotSpotAt + 2);
  QByteArray bytes(cursorFile.data(), static_cast<int>(cursorFile.size()));
  bytes[static_cast<int>(kTypeAt)] = 1;
  for (int i = 0; i < 4; ++i) bytes[static_cast<int>(kHotSpotAt) + i] = 0;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  const QImage image = QImageReader(&buffer, "ico").read();
  return image.isNull() ? QCursor() : QCursor(QPixmap::fromImage(image), x, y);
}

QFont FontOf(const Font& font, const QFont& base) {
  QFont result = base;
  const QString family = ToQt(font.Name);
  if (!family.isEmpty() && QFontDatabase().hasFamily(family)) result.setFamily(family);
  // Sizes are meant against a system font of 8 points.
  if (font.Size > 0) result.setPointSizeF(base.pointSizeF() * font.Size / 8.0);
  result.setBold(font.Bold);
  result.setUnderline(font.Underline);
  return result;
}

void ShowLook(Control& control, QWidget& widget) {
  widget.setToolTip(ToQt(control.ToolTipText()));
  widget.setAccessibleName(ToQt(control.AccessibleName()));
  widget.setAccessibleDescription(ToQt(control.ToolTipText()));
  widget.setFont(FontOf(control.Font(), widget.parentWidget()->window()->font()));
  SetColours(control, widget);
  const Picture& icon = control.MouseIcon();
  if (control.MousePointer() == Pointer::Hourglass) {
    widget.setCursor(Qt::WaitCursor);
  } else if (control.MousePointer() == Pointer::Custom && icon) {
    widget.setCursor(CursorOf(icon->Bytes));
  } else {
    widget.unsetCursor();
  }
}

void ShowState(Control& control, QWidget& widget) {
  widget.setEnabled(control.Enabled());
  widget.setVisible(control.Visible());
}

QString PlainCaption(const Text& caption) {
  QString plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    plain += QChar(caption[i]);
  }
  return plain;
}

bool HasAccelerator(const Text& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return true;
    ++i;
  }
  return false;
}

}  // namespace brelmon::qgis
