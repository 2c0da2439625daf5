// SPDX-License-Identifier: GPL-2.0-or-later
// Text on pages, line by line.
#include "hosts/qgis/services/printer.h"

#include <QDir>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "hosts/common/hostfailure.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

[[noreturn]] void NoPrinter() { host::Fail(failure::kPrinter); }

template <class Dialog>
bool Ask(Dialog& dialog) {
  dialog.setWindowModality(Qt::WindowModal);
  PushModalWindow(&dialog);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  PopModalWindow(&dialog);
  return accepted;
}

[[noreturn]] void Cancelled() { EndTurn(failure::kUserInterrupt, {}); }

std::unique_ptr<QPrinter> PdfFile(const QString& name) {
  auto file = std::make_unique<QPrinter>(QPrinter::HighResolution);
  file->setOutputFormat(QPrinter::PdfFormat);
  file->setOutputFileName(name);
  return file;
}

/// Where there is no printer, a file in its place.
std::unique_ptr<QPrinter> AskForFile() {
  QMessageBox offer(QMessageBox::Question, QStringLiteral("Brelmon Tools"),
                    QObject::tr("No printer is set up on this computer. Do you want to save the "
                                "pages as a PDF file?"),
                    QMessageBox::Save | QMessageBox::Cancel, OwnerWindow());
  offer.setObjectName(QStringLiteral("BrelmonPrintToFile"));
  Ask(offer);
  if (offer.result() != QMessageBox::Save) Cancelled();
  QFileDialog dialog(OwnerWindow(), QObject::tr("Save the pages as"), QDir::homePath(),
                     QObject::tr("PDF files") + QStringLiteral(" (*.pdf)"));
  dialog.setObjectName(QStringLiteral("BrelmonPrintFile"));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.selectFile(QStringLiteral("report.pdf"));
  if (!Ask(dialog)) Cancelled();
  return PdfFile(dialog.selectedFiles().value(0));
}

std::unique_ptr<QPrinter> AskForPrinter() {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrintDialog dialog(printer.get(), OwnerWindow());
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  if (!Ask(dialog)) Cancelled();
  return printer;
}

std::unique_ptr<QPrinter> Open() {
  const QString name = qEnvironmentVariable("BRELMON_PRINTER");
  if (name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) return PdfFile(name);
  if (!name.isEmpty()) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    if (info.isNull()) NoPrinter();
    return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
  }
  return QPrinterInfo::availablePrinterNames().isEmpty() ? AskForFile() : AskForPrinter();
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
    const QSizeF page = printer_->pageRect(QPrinter::DevicePixel).size();
    constexpr int kWrap = int{Qt::TextWordWrap} | int{Qt::TextWrapAnywhere};
    const QRectF room(0, 0, page.width(), page.height());
    const double height =
        std::max(metrics.lineSpacing(), metrics.boundingRect(room, kWrap, line).height());
    if (y_ > 0 && y_ + height > page.height()) {
      printer_->newPage();
      y_ = 0;
    }
    painter_->drawText(room.translated(0, y_), kWrap, line);
    y_ += height;
  }

  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  double points_ = 10;
  double y_ = 0;
};

}  // namespace

std::unique_ptr<IPrinter> NewPrinter() { return std::make_unique<PagePrinter>(); }

}  // namespace brelmon::qgis
