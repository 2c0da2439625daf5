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
#include <QFile>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QWindow>

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

QAction* EnabledAction(const char* className) {
  auto* action = Access().iface->mainWindow()->findChild<QAction*>(QString::fromLatin1(className));
  EXPECT_TRUE(WaitFor([&] { return action->isEnabled(); })) << className << " stays disabled";
  return action;
}

/// Runs `script` in the window that `start` opens; both have ended when this returns.
void During(const std::function<void()>& start, const QString& window,
            const std::function<void(QWidget*)>& script) {
  bool ran = false;
  Soon(window, [&](QWidget* there) {
    script(there);
    ran = true;
  });
  start();
  EXPECT_TRUE(WaitFor([&] { return ran; }));
}

}  // namespace

const TestAccess& Access() { return *running; }

Ref<IMxDocument> Document() { return Access().application->Document().As<IMxDocument>(); }

void OpenModule(const QString& document) {
  SetGraphics({});
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool report = window->objectName() == QLatin1String("frmReport") && window->isVisible();
    if (report || window->inherits("QgsAttributeTableDialog")) window->close();
  }
  // QGIS's own handler would ask what to do about a layer whose data is gone.
  QgsProject::instance()->setBadLayerHandler(new QgsProjectBadLayerHandler);
  QgsProject::instance()->setDirty(false);
  // What QGIS still has to do about the layers of the project before: they bear the same names.
  QgsProject::instance()->clear();
  QApplication::processEvents();
  QgsProject::instance()->read(Module() + QStringLiteral("/../") + document);
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

Ref<ILayer> LayerCalled(const Text& name) {
  const auto layers = Document()->FocusMap()->Layers({}, true);
  Ref<ILayer> layer = layers->Next();
  while (layer && layer->Name() != name) layer = layers->Next();
  return layer;
}

std::int32_t SelectedIn(const Text& layer) {
  return LayerCalled(layer).As<ITableSelection>()->SelectionSet()->Count();
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

QWidget* Shown(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == name) return window;
  }
  return nullptr;
}

QWidget* Window(const QString& name) {
  WaitFor([&] { return Shown(name) != nullptr; });
  return Shown(name);
}

QToolButton* ToolButton(const char* className) {
  auto* bar = Access().iface->mainWindow()->findChild<QToolBar*>(QStringLiteral("BrelmonTools"));
  auto* action = Access().iface->mainWindow()->findChild<QAction*>(QString::fromLatin1(className));
  return qobject_cast<QToolButton*>(bar->widgetForAction(action));
}

// Looks again and again instead of waiting: whoever runs the event loop meanwhile is not held up.
void Soon(const QString& window, const std::function<void(QWidget*)>& script) {
  auto* timer = new QTimer(qApp);
  QElapsedTimer clock;
  clock.start();
  QObject::connect(timer, &QTimer::timeout, timer, [timer, clock, window, script] {
    QWidget* there = Shown(window);
    const bool late = clock.elapsed() > 10000;
    if (!there && !late) return;
    timer->stop();
    timer->deleteLater();
    QTest::qWait(50);
    try {
      if (!there) throw std::runtime_error("no window " + window.toStdString());
      script(there);
    } catch (const std::exception& reason) {
      ADD_FAILURE() << reason.what();
      if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
    }
  });
  timer->start(10);
}

void ClickAndDo(QWidget* button, const QString& window,
                const std::function<void(QWidget*)>& script) {
  During([&] { Click(button); }, window, script);
}

void ClickAndDo(const char* className, const QString& window,
                const std::function<void(QWidget*)>& script) {
  EnabledAction(className);  // first: waiting would run the script too early
  During([&] { Push(className); }, window, script);
}

void Push(const char* className) {
  QAction* action = EnabledAction(className);
  if (QToolButton* button = ToolButton(className)) return Click(button);
  auto* menu = qobject_cast<QMenu*>(action->associatedWidgets().value(0));
  ASSERT_TRUE(menu) << className << " is on no menu";
  menu->popup(Access().iface->mainWindow()->mapToGlobal(QPoint(300, 200)));
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
}

void AnswerBox(QMessageBox::StandardButton answer, QString* text) {
  Soon(QStringLiteral("BrelmonMessageBox"), [answer, text](QWidget* window) {
    auto* box = qobject_cast<QMessageBox*>(window);
    if (text) *text = box->text();
    Click(box->button(answer));
  });
}

void Click(QWidget* widget) {
  WaitFor([&] { return widget->isEnabled(); });
  QTest::mouseClick(widget, Qt::LeftButton);
}

bool TakesInput(QWidget* window) {
  int heard = 0;
  class Listener : public QObject {
   public:
    explicit Listener(int& count) : count_(count) {}
    bool eventFilter(QObject*, QEvent* event) override {
      count_ += event->type() == QEvent::MouseButtonPress;
      return event->type() == QEvent::MouseButtonPress;
    }

   private:
    int& count_;
  } listener(heard);
  window->windowHandle()->installEventFilter(&listener);
  QTest::mousePress(window->windowHandle(), Qt::RightButton, {}, QPoint(2, 2));
  QTest::mouseRelease(window->windowHandle(), Qt::RightButton, {}, QPoint(2, 2));
  QApplication::processEvents();
  return heard > 0;
}

void ClickForReal(QWidget* widget) {
  const QPoint at = widget->mapToGlobal(widget->rect().center());
  QProcess::execute(QStringLiteral("xdotool"),
                    {QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()),
                     QStringLiteral("click"), QStringLiteral("1")});
}

void ClickOption(QWidget* window, const char* name) {
  auto* option = Control<QWidget>(window, name);
  QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
  QTest::qWait(50);  // the form hears of it from the event loop
}

void ClickRow(QWidget* list, int row, Qt::KeyboardModifiers keys) {
  auto* view = qobject_cast<QListView*>(list);
  const QModelIndex index = view->model()->index(row, 0);
  view->scrollTo(index);
  QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, view->visualRect(index).center());
  QTest::qWait(50);
}

void TakePicture(const QString& name, QWidget* window) {
  const QString folder = qEnvironmentVariable("BRELMON_PICTURES");
  if (folder.isEmpty()) return;
  QTest::qWait(300);
  QPixmap picture = QApplication::primaryScreen()->grabWindow(0);
  if (window) {
    const QRect place(window->mapToGlobal(QPoint()), window->size());
    picture = picture.copy(window->isWindow() ? window->frameGeometry() : place);
  }
  picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

void StandInForOpener() {
  QFile program(Module() + QStringLiteral("/../opener"));
  ASSERT_TRUE(program.open(QIODevice::WriteOnly));
  program.write("#!/bin/sh\nprintf '%s\\n' \"$@\" >\"$0.new\" && mv \"$0.new\" \"$0.log\"\n");
  program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  qputenv("BRELMON_OPENER", QFile::encodeName(program.fileName()));
}

QStringList LastOpened() {
  QFile log(qEnvironmentVariable("BRELMON_OPENER") + QStringLiteral(".log"));
  if (!WaitFor([&] { return log.open(QIODevice::ReadOnly); })) return {};
  QStringList words = QString::fromUtf8(log.readAll()).split(QLatin1Char('\n'));
  words.removeLast();  // behind the last line end
  log.remove();
  return words;
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
  const bool some = testing::UnitTest::GetInstance()->test_to_run_count() > 0;
  if (!some) std::fputs("No test goes by the suite's name.\n", stderr);
  // QGIS would ask about changes of the project before it ends.
  std::fflush(nullptr);
  std::_Exit(some ? result : EXIT_FAILURE);
}
