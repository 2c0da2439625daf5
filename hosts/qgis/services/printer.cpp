// SPDX-License-Identifier: GPL-2.0-or-later
// Text on pages, line by line.
#include "hosts/qgis/services/printer.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

[[noreturn]] void NoPrinter() { Raise(failure::kPrinter, 0); }

std::unique_ptr<QPrinter> Open() {
  const bool named = qEnvironmentVariableIsSet("BRELMON_PRINTER");
  const QString name = qEnvironmentVariable("BRELMON_PRINTER");
  if (name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
    auto file = std::make_unique<QPrinter>(QPrinter::HighResolution);
    file->setOutputFormat(QPrinter::PdfFormat);
    file->setOutputFileName(name);
    return file;
  }
  const QPrinterInfo info =
      named ? QPrinterInfo::printerInfo(name) : QPrinterInfo::defaultPrinter();
  if (info.isNull()) NoPrinter();
  return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

class PagePrinter : public IPrinter {
 public:
  void SetFontSize(double points) override {
    Ready();
    points_ = points;
  }
  void Print(const Text& text) override {
    Ready();
    Begin();
    QString whole = ToQt(text);
    whole.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    whole.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    for (const QString& line : whole.split(QLatin1Char('\n'))) PrintLine(line);
  }
  void EndDoc() override {
    Ready();
    Begin();
    const bool done = painter_->end();
    painter_.reset();
    printer_.reset();
    if (!done) NoPrinter();
  }

 private:
  void Ready() {
    if (!printer_) printer_ = Open();
  }
  void Begin() {
    if (painter_) return;
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(printer_.get())) {
      painter_.reset();
      printer_.reset();
      NoPrinter();
    }
    y_ = 0;
  }
  void PrintLine(const QString& line) {
    QFont font;
    font.setPointSizeF(points_);
    painter_->setFont(font);
    const QFontMetricsF metrics(font, printer_.get());
    const QRectF page(QPointF(0, 0), printer_->pageRect(QPrinter::DevicePixel).size());
    if (y_ + metrics.height() > page.height()) {
      printer_->newPage();
      y_ = 0;
    }
    painter_->drawText(QPointF(0, y_ + metrics.ascent()), line);
    y_ += metrics.lineSpacing();
  }

  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  double points_ = 10;
  double y_ = 0;
};

}  // namespace

std::unique_ptr<IPrinter> NewPrinter() { return std::make_unique<PagePrinter>(); }

}  // namespace brelmon::qgis
