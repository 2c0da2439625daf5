// SPDX-License-Identifier: GPL-2.0-or-later
// The entry of the driver, and the tools of tests inside QGIS.
#include "tests/qgis/inside.h"

#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsannotationlayer.h>
#include <qgsannotationlineitem.h>
#include <qgsannotationmarkeritem.h>
#include <qgsannotationpolygonitem.h>
#include <qgscurvepolygon.h>
#include <qgsdockwidget.h>
#include <qgslayertree.h>
#include <qgslayertreeview.h>
#include <qgslinestring.h>
#include <qgsproject.h>
#include <qgsprojectbadlayerhandler.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QMainWindow>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis::test {
namespace {

const TestAccess* running = nullptr;

QString Module() { return qEnvironmentVariable("BRELMON_TEST_MODULE"); }

QgsLayerTreeNode* NodeOf(const Ref<IObject>& item) {
  QgsLayerTree* root = QgsProject::instance()->layerTreeRoot();
  if (const auto layer = item.TryAs<IQgisLayer>()) return root->findLayer(layer->LayerIfThere());
  if (const auto map = item.TryAs<IMap>()) return root->findGroup(ToQt(map->Name()));
  return root->findGroup(ToQt(item.As<ILayer>()->Name()));
}

QgsAnnotationItem* ItemFrom(const std::string& wkt) {
  const QgsGeometry shape = QgsGeometry::fromWkt(QString::fromStdString(wkt));
  if (shape.type() == QgsWkbTypes::PointGeometry) {
    return new QgsAnnotationMarkerItem(QgsPoint(shape.asPoint()));
  }
  if (shape.type() == QgsWkbTypes::LineGeometry) {
    return new QgsAnnotationLineItem(qgsgeometry_cast<const QgsCurve*>(shape.constGet())->clone());
  }
  return new QgsAnnotationPolygonItem(
      qgsgeometry_cast<const QgsCurvePolygon*>(shape.constGet())->clone());
}

}  // namespace

const TestAccess& Access() { return *running; }

Ref<IMxDocument> Document() { return Access().application->Document().As<IMxDocument>(); }

void OpenModule() {
  SetGraphics({});
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->inherits("QgsAttributeTableDialog")) window->close();
  }
  // QGIS's own handler would ask what to do about a layer whose data is gone.
  QgsProject::instance()->setBadLayerHandler(new QgsProjectBadLayerHandler);
  QgsProject::instance()->setDirty(false);
  QgsProject::instance()->read(Module() + QStringLiteral("/earth.qgs"));
  Access().iface->mainWindow()->showMaximized();
  ShowLayersPanel(true);
  QApplication::processEvents();
}

void Pick(const std::vector<Ref<IObject>>& items) {
  QgsLayerTreeView& panel = *Access().iface->layerTreeView();
  panel.selectionModel()->clear();
  for (const auto& item : items) {
    QgsLayerTreeNode* node = NodeOf(item);
    if (!node) throw std::runtime_error("an item is not in the Layers panel");
    panel.selectionModel()->select(panel.node2index(node),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
}

void ShowLayersPanel(bool show) {
  auto* panel = Access().iface->mainWindow()->findChild<QgsDockWidget*>(QStringLiteral("Layers"));
  panel->setUserVisible(show);
  WaitFor([&] { return panel->isUserVisible() == show; });
}

void SetGraphics(const std::vector<std::string>& wkts) {
  QgsAnnotationLayer* layer = QgsProject::instance()->mainAnnotationLayer();
  layer->clear();
  layer->setCrs(QgsProject::instance()->crs());
  std::vector<GraphicId> ids;
  for (const std::string& wkt : wkts) ids.push_back({layer->id(), layer->addItem(ItemFrom(wkt))});
  Access().selectGraphics(ids);
}

bool WaitFor(const std::function<bool()>& done) {
  QElapsedTimer clock;
  for (clock.start(); !done();) {
    if (clock.elapsed() > 10000) return false;
    QTest::qWait(10);
  }
  return true;
}

QWidget* Window(const QString& name) {
  QWidget* found = nullptr;
  WaitFor([&] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->objectName() == name) found = window;
    }
    return found != nullptr;
  });
  return found;
}

QToolButton* ToolButton(const char* className) {
  auto* bar = Access().iface->mainWindow()->findChild<QToolBar*>(QStringLiteral("BrelmonTools"));
  auto* action = Access().iface->mainWindow()->findChild<QAction*>(QString::fromLatin1(className));
  return qobject_cast<QToolButton*>(bar->widgetForAction(action));
}

void ClickAndDo(const char* className, const QString& window,
                const std::function<void(QWidget*)>& script) {
  bool ran = false;
  QTimer::singleShot(0, [&] {
    QWidget* there = Window(window);
    ASSERT_TRUE(there) << "no window " << window.toStdString();
    QTest::qWait(50);
    try {
      script(there);
    } catch (const std::exception& reason) {
      ADD_FAILURE() << reason.what();
      there->close();
    }
    ran = true;
  });
  QToolButton* button = ToolButton(className);
  ASSERT_TRUE(WaitFor([&] { return button->isEnabled(); })) << className << " stays disabled";
  Click(button);
  EXPECT_TRUE(WaitFor([&] { return ran; }));
}

void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

void ClickRow(QWidget* list, int row, Qt::KeyboardModifiers keys) {
  auto* view = qobject_cast<QListView*>(list);
  const QModelIndex index = view->model()->index(row, 0);
  view->scrollTo(index);
  QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, view->visualRect(index).center());
}

void TakePicture(const QString& name) {
  const QString folder = qEnvironmentVariable("BRELMON_PICTURES");
  if (folder.isEmpty()) return;
  QTest::qWait(300);
  QApplication::primaryScreen()->grabWindow(0).save(folder + QLatin1Char('/') + name +
                                                    QStringLiteral(".png"));
}

}  // namespace brelmon::qgis::test

extern "C" __attribute__((visibility("default"))) void brelmon_test_run(
    const brelmon::qgis::TestAccess& access) {
  brelmon::qgis::test::running = &access;
  int count = 1;
  char name[] = "qgis";
  char* arguments[] = {name, nullptr};
  testing::InitGoogleTest(&count, arguments);
  const int result = RUN_ALL_TESTS();
  // QGIS would ask about changes of the project before it ends.
  std::fflush(nullptr);
  std::_Exit(result);
}
