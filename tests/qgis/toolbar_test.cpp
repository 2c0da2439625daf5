// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar in QGIS: its actions, what enables them, what unloading leaves behind.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgslocator.h>
#include <qgslocatorwidget.h>
#include <qgsvectorlayer.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "frame/commandtable.h"
#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

QMainWindow& Main() { return *qobject_cast<QMainWindow*>(Access().iface->mainWindow()); }

QAction* ActionOf(TextView className) { return Main().findChild<QAction*>(ToQt(className)); }

bool Follows(const char* className, bool enabled) {
  return WaitFor([&] {
    return Main().findChild<QAction*>(QString::fromLatin1(className))->isEnabled() == enabled;
  });
}

Ref<IObject> LayerAt(int position) {
  const auto layers = Document()->FocusMap()->Layers({}, true);
  Ref<ILayer> layer;
  for (int i = 0; i <= position; ++i) layer = layers->Next();
  return layer;
}

TEST(Toolbar, ActionsInOrderWithTheirTexts) {
  auto* bar = Main().findChild<QToolBar*>(QStringLiteral("BrelmonTools"));
  ASSERT_TRUE(bar);
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->windowTitle(), QStringLiteral("Brelmon Tools"));
  QStringList names, wanted;
  for (const QAction* action : bar->actions()) {
    names << (action->isSeparator() ? QStringLiteral("|") : action->objectName());
  }
  for (const ToolBarItem& item : ToolBarItems()) {
    if (item.Group) wanted << QStringLiteral("|");
    wanted << ToQt(item.ClassName);
  }
  EXPECT_EQ(names, wanted);
  for (const CommandInfo& info : CommandTable()) {
    const QAction* action = ActionOf(info.ClassName);
    ASSERT_TRUE(action) << ToUtf8(info.ClassName);
    EXPECT_TRUE(action->toolTip().contains(ToQt(info.Tooltip).toHtmlEscaped()));
    EXPECT_EQ(FromQt(action->statusTip()), info.Message);
    EXPECT_FALSE(action->icon().isNull());
  }
}

TEST(Toolbar, AllCommandsStandInTheMenuAndAreFoundByTheLocator) {
  auto* menu = Main().findChild<QMenu*>(QStringLiteral("BrelmonToolsMenu"));
  ASSERT_TRUE(menu);
  EXPECT_TRUE(Main().menuBar()->actions().contains(menu->menuAction()));
  QStringList names;
  for (const QAction* action : menu->actions()) {
    if (!action->isSeparator()) names << action->objectName();
  }
  EXPECT_EQ(names.size(), 20);
  EXPECT_EQ(names.removeDuplicates(), 0);
  for (std::size_t at = 0; at < ToolBarItems().size(); ++at) {
    EXPECT_EQ(names.value(static_cast<int>(at)), ToQt(ToolBarItems()[at].ClassName));
  }

  auto* locator = Main().findChild<QgsLocatorWidget*>();
  QStringList found;
  const QObject context;
  QObject::connect(locator->locator(), &QgsLocator::foundResult, &context,
                   [&](const QgsLocatorResult& result) { found << result.displayString; });
  locator->search(QStringLiteral(". quickload objects"));
  EXPECT_TRUE(WaitFor([&] { return !found.isEmpty(); }));
  EXPECT_TRUE(found.join(QLatin1Char('|')).contains(QStringLiteral("QuickLoad Objects")))
      << found.join(QLatin1Char('|')).toStdString();
  locator->invalidateResults();
}

TEST(Toolbar, PicturesAreSharpAtAnySizeOnAnyGround) {
  const QIcon icon = ActionOf(u"cmdStats")->icon();
  const QImage large = icon.pixmap(QSize(64, 64)).toImage();
  ASSERT_EQ(large.width(), 64);
  EXPECT_EQ(qAlpha(large.pixel(0, 0)), 0);
  int edges = 0;  // a bitmap drawn four times as large has edges at every fourth pixel alone
  for (int x = 1; x < 64; ++x) edges += x % 4 != 0 && large.pixel(x, 40) != large.pixel(x - 1, 40);
  EXPECT_GT(edges, 0);
  const QPalette light = QApplication::palette();
  QPalette dark;
  dark.setColor(QPalette::Window, Qt::black);
  QApplication::setPalette(dark);
  EXPECT_NE(icon.pixmap(QSize(64, 64)).toImage(), large);
  QApplication::setPalette(light);
}

TEST(Toolbar, FollowsTheLayersPanel) {
  OpenModule();
  Pick({});
  EXPECT_TRUE(Follows("OpenTable", false));
  EXPECT_TRUE(Follows("cmdStats", true));
  EXPECT_TRUE(Follows("cmdMediaViewer", true));
  Pick({LayerAt(0)});
  EXPECT_TRUE(Follows("OpenTable", true));
  EXPECT_TRUE(Follows("cmdSelectSwitch", true));
  EXPECT_TRUE(Follows("cmdSelByGraphic", false));
  ShowLayersPanel(false);
  EXPECT_TRUE(Follows("OpenTable", false)) << "the panel is out of sight";
  ShowLayersPanel(true);
  EXPECT_TRUE(Follows("OpenTable", true));
  Pick({LayerAt(1)});
  EXPECT_TRUE(Follows("OpenTable", false)) << "a group is nothing to act on";
  EXPECT_TRUE(Follows("cmdDeleteSelLayers", false));
  Pick({Ref<IObject>(Document()->FocusMap())});
  EXPECT_TRUE(Follows("cmdDeleteSelLayers", true));
  EXPECT_TRUE(Follows("OpenTable", false));
}

TEST(Toolbar, FollowsALayerWithoutData) {
  OpenModule(QStringLiteral("kinds/kinds.qgs"));
  Pick({LayerCalled(u"gone")});
  EXPECT_TRUE(Follows("OpenTable", true)) << "validity is not looked at";
  EXPECT_TRUE(Follows("cmdSelectSwitch", false));
}

TEST(Toolbar, FollowsSelections) {
  OpenModule();
  EXPECT_TRUE(Follows("cmdHistogramStats", false));
  LayerAt(0).As<IFeatureSelection>()->SelectFeatures({}, SelectionMethod::New, false);
  EXPECT_TRUE(Follows("cmdHistogramStats", true));
  Pick({LayerAt(0)});
  EXPECT_TRUE(Follows("cmdSelectSwitch", true));
  Click(ToolButton("cmdSelectSwitch"));
  EXPECT_EQ(LayerAt(0).As<ITableSelection>()->SelectionSet()->Count(), 0);
  EXPECT_TRUE(Follows("cmdHistogramStats", false));
}

}  // namespace
}  // namespace brelmon::qgis::test
