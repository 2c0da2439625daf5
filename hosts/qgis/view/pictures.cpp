// SPDX-License-Identifier: GPL-2.0-or-later
// Drawings at any size, bitmaps where there is no drawing.
#include "hosts/qgis/view/pictures.h"

#include <QApplication>
#include <QBuffer>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

#include "hosts/qgis/view/look.h"

namespace brelmon::qgis {
namespace {

constexpr QRgb kKeyColour = 0xFFFF00FF;
// What of a drawing would be lost on a dark ground.
const char* const kInk = "#303030";
const char* const kLightInk = "#e0e0e0";
const char* const kDeepBlue = "#245ca6";
const char* const kLightBlue = "#6aa8ec";

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

QByteArray ForTheme(const std::string& drawing) {
  QByteArray text = QByteArray::fromStdString(drawing);
  if (!IsDark(GroundColour()) || text.contains("id=\"ground\"")) return text;
  return text.replace(kInk, kLightInk).replace(kDeepBlue, kLightBlue);
}

class PictureEngine : public QIconEngine {
 public:
  explicit PictureEngine(PictureData picture) : picture_(std::move(picture)) {}
  QIconEngine* clone() const override { return new PictureEngine(picture_); }

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
    painter->drawPixmap(place, pixmap(place.size(), mode, state));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const QSize room = NaturalSize(picture_).scaled(size, Qt::KeepAspectRatio);
    const QPixmap plain = PixmapOf(picture_, room);
    if (mode == QIcon::Normal || mode == QIcon::Active) return plain;
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, plain, &option);
  }
  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    return NaturalSize(picture_).scaled(size, Qt::KeepAspectRatio);
  }

 private:
  PictureData picture_;
};

}  // namespace

QSize NaturalSize(const PictureData& picture) { return ImageOf(picture.Bytes).size(); }

QPixmap PixmapOf(const PictureData& picture, const QSize& size) {
  if (picture.Drawing.empty()) {
    return QPixmap::fromImage(ImageOf(picture.Bytes))
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  QPixmap pixmap(size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  QSvgRenderer(ForTheme(picture.Drawing)).render(&painter);
  return pixmap;
}

QIcon IconOf(const PictureData& picture) {
  return ImageOf(picture.Bytes).isNull() ? QIcon() : QIcon(new PictureEngine(picture));
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

}  // namespace brelmon::qgis
