// SPDX-License-Identifier: GPL-2.0-or-later
// Which data frame is in focus in QGIS, and that no tool acts on what can't be seen selected.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgslayertree.h>
#include <qgslayertreemodel.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>

#include <QAction>
#include <QComboBox>
#include <QListView>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTest>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

QgsLayerTreeView& Panel() { return *Access().iface->layerTreeView(); }

QgsLayerTreeGroup& Frame(const char* name) {
  return *QgsProject::instance()->layerTreeRoot()->findGroup(QString::fromLatin1(name));
}

QModelIndex IndexOf(QgsLayerTreeNode& node) {
  const QModelIndex index = Panel().node2index(&node);
  Panel().scrollTo(index);
  return index;
}

/// A click with the mouse on an item, beside the mark of its visibility or on it.
void ClickItem(QgsLayerTreeNode& node, bool onMark = false) {
  const QRect row = Panel().visualRect(IndexOf(node));
  const int mark = Panel().style()->pixelMetric(QStyle::PM_IndicatorWidth) / 2 + 2;
  QTest::mouseClick(Panel().viewport(), Qt::LeftButton, {},
                    QPoint(row.left() + (onMark ? mark : 60), row.center().y()));
  QTest::qWait(100);
}

QgsLayerTreeNode& LayerIn(const char* frame, const char* name) {
  for (QgsLayerTreeLayer* layer : Frame(frame).findLayers()) {
    if (layer->name() == QLatin1String(name)) return *layer;
  }
  throw std::runtime_error(std::string("no layer ") + name);
}

Text InFocus() { return Document()->FocusMap()->Name(); }

const char* const kEarth = "Earth";
const char* const kWeather = "Weather and storms";

TEST(Frames, QuickLoadMovesTheSelectionAlong) {
  OpenModule();
  ClickItem(LayerIn(kEarth, "quakes"));
  ClickAndDo("cmdQuickLoad", QStringLiteral("brelmon_QuickJumpDialog"), [](QWidget* dialog) {
    ClickOption(dialog, "optViews");
    ClickRow(Control<QWidget>(dialog, "lbxList"), 1);
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
  EXPECT_EQ(InFocus(), FromQt(QString::fromLatin1(kWeather)));
  EXPECT_EQ(Panel().selectedNodes(), QList<QgsLayerTreeNode*>{&Frame(kWeather)});
  auto* open = Access().iface->mainWindow()->findChild<QAction*>(QStringLiteral("OpenTable"));
  EXPECT_TRUE(WaitFor([&] { return !open->isEnabled(); }));
}

TEST(Frames, FocusFollowsTheHand) {
  OpenModule();
  QgsLayerTreeNode& inWeather = *Frame(kWeather).findLayers().first();
  ClickItem(inWeather);  // of a hidden frame
  EXPECT_EQ(InFocus(), FromQt(QString::fromLatin1(kWeather)));
  EXPECT_TRUE(Frame(kWeather).itemVisibilityChecked());
  EXPECT_TRUE(Frame(kEarth).itemVisibilityChecked()) << "what else is visible stays";

  ClickItem(LayerIn(kEarth, "quakes"));  // both are visible now
  EXPECT_EQ(InFocus(), u"Earth");
  ClickItem(inWeather);
  ClickAndDo("cmdStats", QStringLiteral("brelmon_ThemeIDDialog"), [&](QWidget* dialog) {
    const auto* list = Control<QListView>(dialog, "lbxTheme");
    EXPECT_EQ(list->currentIndex().data().toString(), inWeather.name());
    dialog->close();
  });
  ClickAndDo("cmdSumBrelmon", QStringLiteral("frm_Brelmon_Summarize"), [&](QWidget* dialog) {
    EXPECT_EQ(Control<QComboBox>(dialog, "cbxLayer")->currentText(), inWeather.name());
    dialog->close();
  });
  // Its mark can still be switched; hidden, it can't be what tools act on.
  ClickItem(Frame(kWeather), true);
  EXPECT_FALSE(Frame(kWeather).itemVisibilityChecked());
  EXPECT_EQ(InFocus(), u"Earth");
  EXPECT_EQ(Panel().selectedNodes(), QList<QgsLayerTreeNode*>{&Frame(kEarth)});
  ClickItem(Frame(kWeather), true);
  EXPECT_TRUE(Frame(kWeather).itemVisibilityChecked());
  EXPECT_EQ(InFocus(), u"Earth") << "a mark is not the item";
}

TEST(Frames, ASelectionOverSeveralLeavesTheFocusAlone) {
  OpenModule();
  ClickItem(LayerIn(kEarth, "quakes"));
  const QRect row = Panel().visualRect(IndexOf(*Frame(kWeather).findLayers().first()));
  QTest::mouseClick(Panel().viewport(), Qt::LeftButton, Qt::ControlModifier,
                    QPoint(row.left() + 60, row.center().y()));
  QTest::qWait(100);
  EXPECT_EQ(Panel().selectedNodes().size(), 2);
  EXPECT_EQ(InFocus(), u"Earth");
  EXPECT_FALSE(Frame(kWeather).itemVisibilityChecked());
}

}  // namespace
}  // namespace brelmon::qgis::test
