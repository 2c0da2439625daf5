// SPDX-License-Identifier: GPL-2.0-or-later
// "Calculate Statistics" from the tool button to the report, with mouse and keys.
#include <gtest/gtest.h>
#include <qgsproject.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

Ref<IObject> FirstLayer() { return Document()->FocusMap()->Layers({}, true)->Next(); }

/// The same run on the command line.
QString ReportOf(const QString& cli) {
  QProcess process;
  process.start(cli, {QgsProject::instance()->fileName(), QStringLiteral("statistics"),
                      QStringLiteral("quakes"), QStringLiteral("MAG"), QStringLiteral("DEPTH_KM")});
  EXPECT_TRUE(process.waitForFinished());
  QString report = QString::fromUtf8(process.readAllStandardOutput());
  EXPECT_TRUE(report.endsWith(QLatin1Char('\n'))) << process.readAllStandardError().toStdString();
  report.chop(1);
  return report;
}

TEST(Statistics, FromToolButtonToReport) {
  OpenModule();
  Pick({FirstLayer()});
  TakePicture(QStringLiteral("toolbar"), ToolButton("cmdStats")->parentWidget());
  ClickAndDo("cmdStats", QStringLiteral("brelmon_ThemeIDDialog"), [](QWidget* dialog) {
    auto* ok = Control<QPushButton>(dialog, "cmdOK");
    EXPECT_FALSE(ok->isEnabled());
    EXPECT_TRUE(Control<QRadioButton>(dialog, "optAll")->isChecked());
    ClickRow(Control<QWidget>(dialog, "lbxField"), 0);
    ClickRow(Control<QWidget>(dialog, "lbxField"), 1, Qt::ControlModifier);
    EXPECT_TRUE(WaitFor([&] { return ok->isEnabled(); }));
    TakePicture(QStringLiteral("statistics"), dialog);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_O, Qt::AltModifier);
    if (dialog->isVisible()) Click(ok);
  });
  QWidget* report = Window(QStringLiteral("frmReport"));
  ASSERT_TRUE(report);
  EXPECT_EQ(report->windowTitle(), QStringLiteral("Statistics Report:"));
  auto* text = Control<QPlainTextEdit>(report, "txtReport");
  EXPECT_TRUE(
      text->toPlainText().startsWith(QStringLiteral("Statistics on Field \"MAG\" in quakes:")))
      << text->toPlainText().toStdString();
  TakePicture(QStringLiteral("report"), report);

  const QString cli = qEnvironmentVariable("BRELMON_CLI");
  if (!cli.isEmpty()) {
    EXPECT_EQ(text->toPlainText(), ReportOf(cli));
  }

  Click(Control<QPushButton>(report, "cmdCopy"));
  EXPECT_EQ(QApplication::clipboard()->text().remove(QLatin1Char('\r')), text->toPlainText());
  Click(Control<QPushButton>(report, "cmdPrint"));
  EXPECT_TRUE(QFile::exists(qEnvironmentVariable("BRELMON_PRINTER")));
  // Where there is no printer, a file in its place: offered, and chosen by the user.
  const QByteArray printer = qgetenv("BRELMON_PRINTER");
  qunsetenv("BRELMON_PRINTER");
  const QString pdf = QString::fromUtf8(printer) + QStringLiteral("-chosen.pdf");
  ClickAndDo(Control<QPushButton>(report, "cmdPrint"), QStringLiteral("BrelmonPrintToFile"),
             [&](QWidget* offer) {
               TakePicture(QStringLiteral("print_to_file"), offer);
               Soon(QStringLiteral("BrelmonPrintFile"), [&](QWidget* chooser) {
                 auto* name = chooser->findChild<QLineEdit*>();
                 name->setText(pdf);
                 QTest::keyClick(name, Qt::Key_Return);
               });
               Click(qobject_cast<QMessageBox*>(offer)->button(QMessageBox::Save));
             });
  EXPECT_TRUE(WaitFor([&] { return QFile::exists(pdf); }));
  qputenv("BRELMON_PRINTER", printer);

  QTest::keyClicks(text, QStringLiteral("note"));
  QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(text->toPlainText().startsWith(QStringLiteral("Statistics")));
  QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), text->toPlainText());
  EXPECT_GE(report->minimumWidth(), 2001 / 15);
  EXPECT_GE(report->minimumHeight(), 2601 / 15);
  report->close();  // hides the frame; the next run shows it again
  EXPECT_TRUE(WaitFor([&] { return !QApplication::topLevelWidgets().contains(report); }));
}

}  // namespace
}  // namespace brelmon::qgis::test
