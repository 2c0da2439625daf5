// SPDX-License-Identifier: GPL-2.0-or-later
// Windows above windows: what takes input beside a modal form, the error dialog, QGIS's own tools.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsdockwidget.h>
#include <qgslayertree.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

TEST(Windows, AFrameOpenedFromAModalFormTakesInput) {
  OpenModule();
  ClickAndDo("cmdSumBrelmon", QStringLiteral("frm_Brelmon_Summarize"), [](QWidget* dialog) {
    Click(Control<QPushButton>(dialog, "cmdHelp"));
    QWidget* help = Window(QStringLiteral("frmSumHelp"));
    ASSERT_TRUE(help);
    TakePicture(QStringLiteral("summarize_help"), help);
    EXPECT_TRUE(TakesInput(help));
    EXPECT_TRUE(TakesInput(dialog));
    EXPECT_FALSE(TakesInput(Access().iface->mainWindow()));
    help->close();
    EXPECT_TRUE(dialog->isVisible());
    dialog->close();
  });
  EXPECT_TRUE(TakesInput(Access().iface->mainWindow()));
}

TEST(Windows, ATableOpenedFromAModalFormTakesInput) {
  OpenModule();
  Pick({Document()->FocusMap()->Layers({}, true)->Next()});
  ClickAndDo("cmdSelByAttBrelmon", QStringLiteral("brelmon_ModQueryDialog"), [](QWidget* dialog) {
    Click(Control<QPushButton>(dialog, "cmdOpenTable"));
    QWidget* table = nullptr;
    EXPECT_TRUE(WaitFor([&] {
      for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->inherits("QgsAttributeTableDialog")) table = window;
      }
      return table != nullptr;
    }));
    ASSERT_TRUE(table);
    EXPECT_TRUE(TakesInput(table));
    dialog->close();
  });
}

/// The window that the window manager keeps `window` above.
WId KeptAbove(QWidget* window) {
  QProcess asked;
  asked.start(QStringLiteral("xprop"), {QStringLiteral("-id"), QString::number(window->winId()),
                                        QStringLiteral("WM_TRANSIENT_FOR")});
  asked.waitForFinished();
  return asked.readAllStandardOutput().trimmed().split(' ').last().toUInt(nullptr, 16);
}

QList<QWidget*> Tables() {
  QList<QWidget*> tables;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->inherits("QgsAttributeTableDialog")) tables << window;
  }
  return tables;
}

TEST(Windows, ReportAndHelpStayAboveQgisAndComeUpAgain) {
  OpenModule();
  Pick({LayerCalled(u"quakes")});
  QWidget* main = Access().iface->mainWindow();
  QWidget* help = nullptr;
  ClickAndDo("cmdSumBrelmon", QStringLiteral("frm_Brelmon_Summarize"), [&](QWidget* dialog) {
    Click(Control<QPushButton>(dialog, "cmdHelp"));
    help = Window(QStringLiteral("frmSumHelp"));
    dialog->close();
  });
  ASSERT_TRUE(help);
  EXPECT_TRUE(WaitFor([&] { return KeptAbove(help) == main->winId(); }));
  EXPECT_TRUE(help->isVisible());
  QTest::keyClick(help, Qt::Key_Escape);
  EXPECT_TRUE(WaitFor([&] { return !Shown(QStringLiteral("frmSumHelp")); }));

  const auto calculate = [] {
    ClickAndDo("cmdStats", QStringLiteral("brelmon_ThemeIDDialog"), [](QWidget* dialog) {
      ClickRow(Control<QWidget>(dialog, "lbxField"), 0);
      Click(Control<QPushButton>(dialog, "cmdOK"));
    });
    return Window(QStringLiteral("frmReport"));
  };
  QWidget* report = calculate();
  EXPECT_EQ(KeptAbove(report), main->winId());
  report->showMinimized();
  EXPECT_TRUE(WaitFor([&] { return report->isMinimized(); }));
  EXPECT_EQ(calculate(), report);
  EXPECT_FALSE(report->isMinimized());
  report->close();
}

TEST(Windows, TablesLieBesideEachOtherAndComeUpAgain) {
  OpenModule();
  Pick({LayerCalled(u"quakes"), LayerCalled(u"storms"), LayerCalled(u"countries")});
  Push("OpenTable");
  ASSERT_TRUE(WaitFor([] { return Tables().size() == 3; }));
  QSet<int> tops;
  for (const QWidget* table : Tables()) tops << table->pos().y();
  TakePicture(QStringLiteral("three_tables"));
  EXPECT_EQ(tops.size(), 3);
  QWidget* table = Tables().first();
  table->showMinimized();
  EXPECT_TRUE(WaitFor([&] { return table->isMinimized(); }));
  Push("OpenTable");
  EXPECT_TRUE(WaitFor([&] { return !table->isMinimized(); }));
}

TEST(Windows, AnchorsFollowTheBorderOfTheWindow) {
  OpenModule();
  ClickAndDo("cmdQuickLoad", QStringLiteral("brelmon_QuickJumpDialog"), [](QWidget* dialog) {
    QWidget* list = Control<QWidget>(dialog, "lbxList");
    QWidget* grip = Control<QWidget>(dialog, "imgCornerBars");
    const QSize before = dialog->size(), listBefore = list->size();
    const QPoint gripBefore = grip->pos();
    dialog->resize(before + QSize(90, 60));
    EXPECT_TRUE(WaitFor([&] { return list->size() != listBefore; }));
    EXPECT_NEAR(list->width(), listBefore.width() + 90, 2);
    EXPECT_NEAR(list->height(), listBefore.height() + 60, 2);
    EXPECT_NEAR(grip->x(), gripBefore.x() + 90, 2);
    dialog->close();
  });
}

TEST(Windows, AGroupBecomesADataFrameInThePanelsMenu) {
  OpenModule();
  auto* root = QgsProject::instance()->layerTreeRoot();
  QgsLayerTreeGroup* group = root->addGroup(QStringLiteral("Volcanism"));
  QgsLayerTreeView& panel = *Access().iface->layerTreeView();
  const QRect entry = panel.visualRect(panel.node2index(group));
  QTimer::singleShot(100, [] {
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    auto* action = menu->findChild<QAction*>(QStringLiteral("BrelmonDataFrame"));
    EXPECT_GT(menu->actions().size(), 3) << "QGIS's own entries";
    if (action) action->trigger();
    menu->close();
    EXPECT_TRUE(action);
  });
  QContextMenuEvent request(QContextMenuEvent::Mouse, entry.center(),
                            panel.viewport()->mapToGlobal(entry.center()));
  QApplication::sendEvent(panel.viewport(), &request);
  EXPECT_EQ(Document()->Maps()->Count(), 3);
  EXPECT_EQ(Document()->FocusMap()->Name(), u"Volcanism");
}

TEST(Windows, QgisSummarizeDialogOpensOnTheField) {
  OpenModule();
  Pick({Document()->FocusMap()->Layers({}, true)->Next()});
  auto* action = Access().iface->mainWindow()->findChild<QAction*>(QStringLiteral("cmdSummarize"));
  ASSERT_TRUE(WaitFor([&] { return action->isEnabled(); }));
  bool shown = false;
  // Looks again and again: the dialog is made in the middle of events that must not be held up.
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      const bool due = window->windowTitle() == QLatin1String("Statistics by categories");
      if (!due || !window->isVisible() || !window->isModal()) continue;
      look.stop();
      TakePicture(QStringLiteral("host_summarize"));
      shown = true;
      window->close();
    }
  });
  look.start(100);
  action->trigger();
  EXPECT_TRUE(WaitFor([&] { return shown; }));
}

TEST(Windows, ErrorDialogHoldsTheTrailAndStopsTheAsking) {
  OpenModule();
  auto* action = Access().iface->mainWindow()->findChild<QAction*>(QStringLiteral("OpenTable"));
  Pick({});
  ASSERT_TRUE(WaitFor([&] { return !action->isEnabled(); }));
  const auto dialog = Access().services.objects->NewErrorDialog();
  dialog->SetText(u"Record Call Stack Sequence\r\n\tsomewhere");
  dialog->SetVisible(true);
  QWidget* window = Window(QStringLiteral("BrelmonErrorDialog"));
  ASSERT_TRUE(window);
  EXPECT_TRUE(Control<QPlainTextEdit>(window, "txtTrail")->isReadOnly());
  Pick({Document()->FocusMap()->Layers({}, true)->Next()});
  QTest::qWait(100);
  EXPECT_FALSE(action->isEnabled()) << "asked while the dialog is open";
  window->close();
  EXPECT_TRUE(WaitFor([&] { return action->isEnabled(); }));
}

TEST(Windows, HostCommandsAreFound) {
  const auto bars = Access().application->Document()->CommandBars();
  for (const char16_t* id :
       {u"{3E58D6D0-DF7A-11D1-ADD9-080009EC732A}", u"{82B9951B-DD63-11D1-AA7F-00C04FA37860}",
        u"{54EBEEE6-DC82-11D1-AA7F-00C04FA37860}"}) {
    EXPECT_TRUE(bars->Find(New<UID>(Text(id)))) << ToUtf8(id);
  }
  EXPECT_FALSE(bars->Find(New<UID>(Text(u"{00000000-0000-0000-0000-000000000000}"))));
  bars->Find(New<UID>(Text(u"{3E58D6D0-DF7A-11D1-ADD9-080009EC732A}")))->Execute();
  auto* panel = Access().iface->mainWindow()->findChild<QgsDockWidget*>(
      QStringLiteral("StatisticalSummaryDockWidget"));
  EXPECT_TRUE(WaitFor([&] { return panel->isUserVisible(); }));
}

TEST(Unload, LeavesNothingButTheErrorDialog) {
  Access().services.objects->NewErrorDialog()->SetVisible(true);
  QMainWindow* main = qobject_cast<QMainWindow*>(Access().iface->mainWindow());
  Access().unload();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(main->findChild<QWidget*>(QStringLiteral("BrelmonTools")));
  EXPECT_FALSE(main->findChild<QWidget*>(QStringLiteral("BrelmonProgress")));
  EXPECT_FALSE(main->findChild<QAction*>(QStringLiteral("cmdStats")));
  EXPECT_FALSE(main->findChild<QAction*>(QStringLiteral("cmdQLDelete")));
  EXPECT_FALSE(QApplication::overrideCursor());
  QWidget* dialog = Window(QStringLiteral("BrelmonErrorDialog"));
  ASSERT_TRUE(dialog);
  EXPECT_TRUE(dialog->close());
}

}  // namespace
}  // namespace brelmon::qgis::test
