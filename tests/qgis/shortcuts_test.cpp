// SPDX-License-Identifier: GPL-2.0-or-later
// What the author prepared, in QGIS, by clicks: QuickLoad, its editors, the media viewer.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsmapcanvas.h>

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

QString InModule(const char* file) {
  return qEnvironmentVariable("BRELMON_TEST_MODULE") + QLatin1Char('/') + QLatin1String(file);
}

QByteArray Shortcuts() {
  QFile file(InModule("QuickLoad.txt"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

int Rows(QWidget* dialog, const char* list) {
  return Control<QListView>(dialog, list)->model()->rowCount();
}

/// Chooses a row of one of QuickLoad's lists, and OK; `prepare` runs just before that click.
void Jump(
    const char* option, int row, const std::function<void()>& prepare = [] {}) {
  ClickAndDo("cmdQuickLoad", QStringLiteral("brelmon_QuickJumpDialog"), [&](QWidget* dialog) {
    ClickOption(dialog, option);
    EXPECT_FALSE(Control<QPushButton>(dialog, "cmdOK")->isEnabled());
    ClickRow(Control<QWidget>(dialog, "lbxList"), row);
    if (row == 0) TakePicture(QStringLiteral("quickload_") + QLatin1String(option).mid(3), dialog);
    prepare();
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
}

/// Reads the modal report that comes next, and closes it.
void ReadReport(QString& title, QString& text) {
  Soon(QStringLiteral("frmReport_modal"), [&](QWidget* report) {
    title = report->windowTitle();
    text = Control<QPlainTextEdit>(report, "txtReport")->toPlainText();
    report->close();
  });
}

TEST(Shortcuts, JumpToEachKind) {
  OpenModule();
  Jump("optExtents", 0);  // Gulf of Mexico
  const QgsRectangle extent = Access().iface->mapCanvas()->extent();
  EXPECT_NEAR(extent.center().x(), (-98.25 - 80.125) / 2, 1e-6);
  EXPECT_NEAR(extent.center().y(), (17.5 + 31) / 2, 1e-6);
  EXPECT_TRUE(std::abs(extent.width() - 18.125) < 1e-6 || std::abs(extent.height() - 13.5) < 1e-6)
      << extent.toString().toStdString();

  const auto layers = [] { return Document()->FocusMap()->LayerCount(); };
  const auto before = layers();
  Jump("optLayers", 0);
  EXPECT_EQ(layers(), before + 1);
  QFile::remove(InModule("layers/country_borders.qlr"));
  QString refusal, title, text;
  // The dialog kept its rows and its row: only another kind fills the list anew.
  ClickAndDo("cmdQuickLoad", QStringLiteral("brelmon_QuickJumpDialog"), [&](QWidget* dialog) {
    ClickRow(Control<QWidget>(dialog, "lbxList"), 1);
    AnswerBox(QMessageBox::Ok, &refusal);
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
  EXPECT_TRUE(refusal.contains(QStringLiteral("layers\\country_borders.qlr")))
      << refusal.toStdString();
  EXPECT_EQ(layers(), before + 1);

  Jump("optQueries", 0, [&] { ReadReport(title, text); });
  EXPECT_EQ(title, QStringLiteral("Query = Deep and strong quakes"));
  EXPECT_EQ(text, QStringLiteral("\"DEPTH_KM\" > 300 AND \"MAG\" > 5"));
  Jump("optViews", 1);
  EXPECT_EQ(Document()->FocusMap()->Name(), u"Weather and storms");
}

TEST(Shortcuts, ABookmarkIsAddedAndOthersDeleted) {
  OpenModule();
  const QByteArray before = Shortcuts();
  QString saved;
  ClickAndDo("cmdQLAddSpatial", QStringLiteral("frm_InputSpatialBookmark"), [&](QWidget* dialog) {
    auto* ok = Control<QPushButton>(dialog, "OKButton");
    EXPECT_FALSE(ok->isEnabled());
    QTest::keyClicks(Control<QLineEdit>(dialog, "txtName"), QStringLiteral("Our island"));
    TakePicture(QStringLiteral("add_bookmark"), dialog);
    AnswerBox(QMessageBox::Ok, &saved);
    Click(ok);
  });
  EXPECT_EQ(saved, QStringLiteral("'Our island' has been saved to the QuickLoad.txt file."));
  const QByteArray added = Shortcuts();
  ASSERT_TRUE(added.startsWith(before + "<Bookmark>\r\nOur island\r\n"));
  EXPECT_EQ(added.count("\r\n"), before.count("\r\n") + 6);

  QString title, report;
  ClickAndDo("cmdQLDelete", QStringLiteral("frm_QLDelete"), [&](QWidget* dialog) {
    EXPECT_EQ(Rows(dialog, "lbxReferences"), 10);
    ClickRow(Control<QWidget>(dialog, "lbxReferences"), 0);
    for (int row = 2; row <= 8; ++row) {
      ClickRow(Control<QWidget>(dialog, "lbxReferences"), row, Qt::ControlModifier);
    }
    TakePicture(QStringLiteral("delete_references"), dialog);
    ReadReport(title, report);
    Click(Control<QPushButton>(dialog, "OKButton"));
  });
  EXPECT_EQ(title, QStringLiteral("QuickLoad Edit Report:"));
  EXPECT_EQ(report.count(QStringLiteral("  --> ")), 8);
  EXPECT_TRUE(report.contains(QStringLiteral("  --> Mediterranean  [Spatial Bookmark]")));
  EXPECT_EQ(Shortcuts(), "<Layer>\r\nCountry borders\r\nlayers\\country_borders.qlr\r\n" +
                             added.mid(before.size()));
}

TEST(Shortcuts, OnlyLayerFilesAreOfferedToAdd) {
  OpenModule();
  ClickAndDo("cmdQLAddLayer", QStringLiteral("BrelmonGxDialog"), [](QWidget* window) {
    auto* dialog = qobject_cast<QFileDialog*>(window);
    EXPECT_EQ(dialog->findChild<QLineEdit*>()->text(), QString());
    for (const QString& filter : dialog->nameFilters()) {
      EXPECT_TRUE(filter.contains(QStringLiteral("*.qlr"))) << filter.toStdString();
    }
    AnswerBox(QMessageBox::Ok);
    dialog->reject();
  });
}

TEST(Shortcuts, MediaOpenInTheSystemsPrograms) {
  OpenModule();
  StandInForOpener();
  const QString module = qEnvironmentVariable("BRELMON_TEST_MODULE");
  QFile::remove(InModule("movies/wave.gif"));
  ClickAndDo("cmdMediaViewer", QStringLiteral("brelmon_MediaDialog"), [&](QWidget* dialog) {
    auto* list = Control<QListView>(dialog, "lbxAll");
    auto* ok = Control<QPushButton>(dialog, "cmdOK");
    EXPECT_EQ(Rows(dialog, "lbxAll"), 10);
    TakePicture(QStringLiteral("media_viewer"), dialog);
    ClickOption(dialog, "optImages");
    EXPECT_FALSE(ok->isEnabled());
    EXPECT_EQ(Rows(dialog, "lbxAll"), 2);
    ClickRow(list, 0);
    Click(ok);
    EXPECT_EQ(LastOpened(), QStringList({InModule("images/faults.png"), module + "/images"}));
    ClickOption(dialog, "optWebsites");
    ClickRow(list, 1);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                       list->visualRect(list->model()->index(1, 0)).center());
    EXPECT_EQ(LastOpened(),
              QStringList({QStringLiteral("https://earthquake.usgs.gov/earthquakes/map/"), {}}));

    ClickOption(dialog, "optMovies");
    ClickRow(list, 0);
    QString refusal;
    AnswerBox(QMessageBox::Ok, &refusal);
    Click(ok);
    EXPECT_TRUE(refusal.startsWith(QStringLiteral("Unable to find the Movie located at ")))
        << refusal.toStdString();
    EXPECT_TRUE(dialog->isVisible());

    qputenv("BRELMON_OPENER", "/bin/false");
    ClickOption(dialog, "optPDFs");
    ClickRow(list, 0);
    QString complaint;
    AnswerBox(QMessageBox::Ok, &complaint);
    Click(ok);
    EXPECT_TRUE(WaitFor([&] { return !complaint.isEmpty(); })) << "nothing opens, nothing is told";
    EXPECT_TRUE(complaint.startsWith(InModule("docs/worksheet.pdf") + " was not opened. "))
        << complaint.toStdString();
    Click(Control<QPushButton>(dialog, "cmdCancel"));
  });
}

}  // namespace
}  // namespace brelmon::qgis::test
