// SPDX-License-Identifier: GPL-2.0-or-later
// Acting on the active themes in QGIS, by clicks: tables, selections, deletion, QGIS's own tools.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsannotationlayer.h>
#include <qgsannotationpolygonitem.h>
#include <qgsdockwidget.h>
#include <qgsfillsymbol.h>
#include <qgsfillsymbollayer.h>
#include <qgsmapcanvas.h>
#include <qgsmaptoolmodifyannotation.h>
#include <qgsmessagebar.h>
#include <qgsmessagebaritem.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "frame/version.h"
#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

QList<QWidget*> Tables() {
  QList<QWidget*> tables;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->inherits("QgsAttributeTableDialog")) tables << window;
  }
  return tables;
}

QgsVectorLayer& Vector(const char* name) {
  return *qobject_cast<QgsVectorLayer*>(
      QgsProject::instance()->mapLayersByName(QString::fromLatin1(name)).value(0));
}

/// Pushes a command whose one box is answered; gives the box's text.
QString PushAndAnswer(const char* className, QMessageBox::StandardButton answer) {
  QString text;
  ClickAndDo(className, QStringLiteral("BrelmonMessageBox"), [&](QWidget* window) {
    auto* box = qobject_cast<QMessageBox*>(window);
    text = box->text();
    Click(box->button(answer));
  });
  return text;
}

TEST(Themes, OpenTableFindsItsWindowAgain) {
  OpenModule();
  Pick({LayerCalled(u"quakes")});
  Push("OpenTable");
  ASSERT_TRUE(WaitFor([] { return Tables().size() == 1; }));
  QWidget* table = Tables().front();
  TakePicture(QStringLiteral("open_table"));
  QWidget* main = Access().iface->mainWindow();
  main->activateWindow();
  ASSERT_TRUE(WaitFor([&] { return main->isActiveWindow(); }));
  Push("OpenTable");
  EXPECT_TRUE(WaitFor([&] { return table->isActiveWindow(); })) << "stays behind QGIS";
  EXPECT_EQ(Tables(), QList<QWidget*>{table});

  Pick({Document()->FocusMap().As<IStandaloneTableCollection>()->StandaloneTable(0)});
  Push("OpenTable");
  EXPECT_TRUE(WaitFor([] { return Tables().size() == 2; }));
}

TEST(Themes, ALayerWithoutDataEndsTheWalk) {
  OpenModule(QStringLiteral("kinds/kinds.qgs"));
  Pick({LayerCalled(u"points"), LayerCalled(u"gone"), LayerCalled(u"geojson")});
  const QString refusal = PushAndAnswer("OpenTable", QMessageBox::Ok);
  EXPECT_TRUE(refusal.contains(QStringLiteral("gone"))) << refusal.toStdString();
  EXPECT_TRUE(refusal.contains(QStringLiteral("Unable to open table...")));
  EXPECT_EQ(Tables().size(), 1) << "the layer behind it stays shut";
}

TEST(Themes, SelectionIsSwitchedFilledAndCleared) {
  OpenModule();
  const auto quakes = LayerCalled(u"quakes");
  const auto table = Document()->FocusMap().As<IStandaloneTableCollection>()->StandaloneTable(0);
  Vector("quakes").selectByExpression(QStringLiteral("MAG >= 5.5"));
  Pick({quakes, LayerCalled(u"Relief"), table});  // the raster is passed over
  Push("cmdSelectSwitch");
  EXPECT_EQ(SelectedIn(u"quakes"), 1707 - 9);
  EXPECT_EQ(Vector("weather").selectedFeatureCount(), 2922);
  EXPECT_EQ(Vector("countries").selectedFeatureCount(), 0);
  Push("cmdSelectSwitch");
  EXPECT_EQ(SelectedIn(u"quakes"), 9);
  Push("cmdSelectAll");
  EXPECT_EQ(SelectedIn(u"quakes"), 1707);
  Pick({});  // clearing asks for no active theme
  Push("cmdSelectNone");
  EXPECT_EQ(SelectedIn(u"quakes"), 0);
  EXPECT_EQ(Vector("weather").selectedFeatureCount(), 0);
}

TEST(Themes, GraphicsSelectWhatTheyTouchInAnyCrs) {
  OpenModule();
  QgsProject::instance()->setCrs(QgsCoordinateReferenceSystem(QStringLiteral("EPSG:3857")));
  // 10 E 51 N in Germany; from 2 E 47 N in France to 3 W 40 N in Spain.
  SetGraphics({"POINT(1113195 6621294)", "LINESTRING(222639 5942074, -333958 4865942)"});
  Pick({LayerCalled(u"countries"), LayerCalled(u"quakes")});
  Push("cmdSelByGraphic");
  EXPECT_EQ(SelectedIn(u"countries"), 3);
  EXPECT_EQ(SelectedIn(u"quakes"), 0);
  SetGraphics({"POINT(-3339585 0)"});  // in the ocean
  Pick({LayerCalled(u"countries")});
  Push("cmdSelByGraphic");
  EXPECT_EQ(SelectedIn(u"countries"), 0);
}

TEST(Themes, GraphicsPickedOneAfterTheOtherAddUpUntilTheToolLetsGo) {
  OpenModule();
  SetGraphics({"POINT(10 51)", "POINT(2 47)"});
  QgsAnnotationLayer* layer = QgsProject::instance()->mainAnnotationLayer();
  const QStringList items = layer->items().keys();
  Access().selectGraphics({});
  Access()
      .iface->mainWindow()
      ->findChild<QAction*>(QStringLiteral("mActionModifyAnnotation"))
      ->trigger();
  auto* tool = qobject_cast<QgsMapToolModifyAnnotation*>(Access().iface->mapCanvas()->mapTool());
  ASSERT_TRUE(tool);
  const auto picked = [] {
    return Document()->FocusMap()->ActiveGraphicsLayer()->ElementSelectionCount();
  };
  for (const QString& item : items + items) emit tool->itemSelected(layer, item);
  EXPECT_EQ(picked(), 2);
  Pick({LayerCalled(u"countries")});
  Push("cmdSelByGraphic");
  EXPECT_EQ(SelectedIn(u"countries"), 2);
  SetGraphics({"POLYGON((0 40, 20 40, 20 55, 0 55, 0 40))"});
  TakePicture(QStringLiteral("graphic_before"));
  Push("cmdSelByGraphic");
  const auto drawn = layer->items();
  for (const QgsAnnotationItem* item : drawn) {
    const auto* polygon = dynamic_cast<const QgsAnnotationPolygonItem*>(item);
    const auto* fill =
        dynamic_cast<const QgsSimpleFillSymbolLayer*>(polygon->symbol()->symbolLayer(0));
    EXPECT_EQ(fill->brushStyle(), Qt::NoBrush) << "hides what it has selected";
  }
  TakePicture(QStringLiteral("graphic_after"));
  emit tool->selectionCleared();
  EXPECT_EQ(picked(), 0);
}

TEST(Themes, WhatNoGuardCatchesIsToldInTheMessageBar) {
  OpenModule(QStringLiteral("kinds/kinds.qgs"));
  QgsMessageBar& bar = *Access().iface->messageBar();
  bar.clearWidgets();
  SetGraphics({"POINT(10 51)"});
  // A set may hold a layer without data, which is handed to the host as it is.
  Pick({LayerCalled(u"gone"), LayerCalled(u"gpkg")});
  Push("cmdSelByGraphic");
  ASSERT_TRUE(WaitFor([&] { return bar.currentItem() != nullptr; }));
  EXPECT_EQ(bar.currentItem()->title(), QStringLiteral("Brelmon Tools"));
  EXPECT_EQ(bar.currentItem()->level(), Qgis::MessageLevel::Critical);
  EXPECT_FALSE(bar.currentItem()->text().isEmpty());
  TakePicture(QStringLiteral("message_bar"));
  bar.clearWidgets();
}

TEST(Themes, DeletionClosesTablesThenAsks) {
  OpenModule();
  Pick({LayerCalled(u"storms")});
  Push("OpenTable");
  ASSERT_TRUE(WaitFor([] { return Tables().size() == 1; }));
  ClickAndDo("cmdDeleteSelLayers", QStringLiteral("BrelmonMessageBox"), [](QWidget* box) {
    TakePicture(QStringLiteral("delete_layers"), box);
    EXPECT_EQ(box->windowTitle(), QStringLiteral("Confirm Deletion:"));
    Click(qobject_cast<QMessageBox*>(box)->button(QMessageBox::Cancel));
  });
  EXPECT_TRUE(WaitFor([] { return Tables().isEmpty(); })) << "the table's window stays open";
  EXPECT_TRUE(LayerCalled(u"storms"));
  Pick({LayerCalled(u"storms"), LayerCalled(u"Stations")});
  const QString question = PushAndAnswer("cmdDeleteSelLayers", QMessageBox::Ok);
  EXPECT_TRUE(question.contains(QStringLiteral("  --> Stations"))) << question.toStdString();
  EXPECT_FALSE(LayerCalled(u"storms"));
  EXPECT_FALSE(LayerCalled(u"Stations"));

  Pick({Document()->Maps()->Item(0), Document()->Maps()->Item(1)});
  EXPECT_TRUE(PushAndAnswer("cmdDeleteSelLayers", QMessageBox::Ok)
                  .contains(QStringLiteral("  --> Weather and storms [Map Frame]")));
  ASSERT_EQ(Document()->Maps()->Count(), 1);
  EXPECT_EQ(Document()->FocusMap()->Name(), u"Layers");
  EXPECT_EQ(Document()->FocusMap()->LayerCount(), 0);
}

TEST(Themes, ToolsOfQgisOpen) {
  OpenModule();
  auto* panel = Access().iface->mainWindow()->findChild<QgsDockWidget*>(
      QStringLiteral("StatisticalSummaryDockWidget"));
  panel->setUserVisible(false);
  Pick({LayerCalled(u"quakes")});
  Access().iface->setActiveLayer(&Vector("quakes"));
  Push("cmdSelectAll");
  Push("cmdHistogramStats");
  EXPECT_TRUE(WaitFor([&] { return panel->isUserVisible(); }));
  panel->setUserVisible(false);
  for (const auto& [command, type] :
       {std::pair("cmdSelByAttributes", "QgsExpressionSelectionDialog"),
        std::pair("cmdSelByLocation", "AlgorithmDialog")}) {
    bool shown = false;
    // From a timer: one of them runs an event loop of its own.
    QTimer::singleShot(0, [&shown, wanted = type] {
      QWidget* dialog = nullptr;
      shown = WaitFor([&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
          if (window->isVisible() && window->inherits(wanted)) dialog = window;
        }
        return dialog != nullptr;
      });
      if (dialog) dialog->close();
    });
    Push(command);
    EXPECT_TRUE(WaitFor([&] { return shown; })) << command;
  }
}

TEST(Themes, AboutTellsTheVersionAndOpensItsPages) {
  OpenModule();
  StandInForOpener();
  ClickAndDo("cmdAbout", QStringLiteral("frmAbout"), [](QWidget* about) {
    TakePicture(QStringLiteral("about"), about);
    EXPECT_EQ(about->windowTitle(), QStringLiteral("About BRELMON GIS Tools"));
    EXPECT_EQ(Control<QLabel>(about, "lblVersion")->text(), QStringLiteral("Version %1.%2.%3")
                                                                .arg(kVersion.Major)
                                                                .arg(kVersion.Minor)
                                                                .arg(kVersion.Revision));
    auto* link = Control<QLabel>(about, "lblWebSite");
    const auto shows = [&](Qt::GlobalColor colour) {
      return WaitFor([&] { return link->palette().color(QPalette::WindowText) == QColor(colour); });
    };
    QTest::mouseMove(link);
    EXPECT_TRUE(shows(Qt::red));
    QTest::mouseMove(about, QPoint(about->width() / 2, about->height() - 4));
    EXPECT_TRUE(shows(Qt::blue));
    QStringList pages;
    for (const char* name : {"lblWebSite", "picMakerLogo", "lblSponsor2"}) {
      Click(Control<QWidget>(about, name));
      pages << LastOpened().value(0);
    }
    EXPECT_TRUE(QFile::exists(pages[0])) << pages[0].toStdString();
    EXPECT_TRUE(QFile::exists(pages[2])) << pages[2].toStdString();
    EXPECT_EQ(pages[1], pages[0]);
    EXPECT_NE(pages[2], pages[0]);
    link->setFocus();
    QTest::keyClick(link, Qt::Key_Return);
    EXPECT_EQ(LastOpened().value(0), pages[0]);
    EXPECT_TRUE(about->isVisible()) << "Enter was for the link";
    TakePicture(QStringLiteral("about_link"), about);
    Click(Control<QPushButton>(about, "cmdOK"));
  });
}

}  // namespace
}  // namespace brelmon::qgis::test
