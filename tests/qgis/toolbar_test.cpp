// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar in QGIS: its actions, what enables them, what unloading leaves behind.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsvectorlayer.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
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

TEST(Toolbar, CommandsOffTheBarStandInMenusOfTheirCategories) {
  QStringList found;
  for (const QAction* entry : Access().iface->pluginMenu()->actions()) {
    if (!entry->menu() ||
        !entry->text().remove(QLatin1Char('&')).startsWith(QLatin1String("Brelmon"))) {
      continue;
    }
    found << entry->text().remove(QLatin1Char('&'));
    for (const QAction* action : entry->menu()->actions()) found << action->objectName();
  }
  for (const char* name : {"Brelmon Commands", "Brelmon QL Commands", "cmdHistogramStats",
                           "cmdSelectAll", "cmdSelByAttributes", "cmdSummarize", "cmdQLAddSpatial",
                           "cmdQLAddQuery", "cmdQLAddLayer", "cmdQLDelete"}) {
    EXPECT_TRUE(found.contains(QString::fromLatin1(name))) << name;
  }
  EXPECT_EQ(found.size(), 10);
}

TEST(Toolbar, KeyColourIsTransparentAndScalingIsWhole) {
  const QIcon icon = ActionOf(u"cmdStats")->icon();
  const QImage small = icon.pixmap(QSize(16, 16)).toImage();
  const QImage large = icon.pixmap(QSize(32, 32)).toImage();
  ASSERT_EQ(large.width(), 32);
  int clear = 0;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      EXPECT_NE(small.pixel(x, y), 0xFFFF00FFu);
      EXPECT_EQ(small.pixel(x, y), large.pixel(2 * x + 1, 2 * y));
      clear += qAlpha(small.pixel(x, y)) == 0;
    }
  }
  EXPECT_GT(clear, 0);
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
  Pick({LayerAt(3)});
  EXPECT_TRUE(Follows("OpenTable", true)) << "validity is not looked at";
  EXPECT_TRUE(Follows("cmdSelectSwitch", false));
  Pick({Ref<IObject>(Document()->FocusMap())});
  EXPECT_TRUE(Follows("cmdDeleteSelLayers", true));
  EXPECT_TRUE(Follows("OpenTable", false));
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
