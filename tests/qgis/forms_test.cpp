// SPDX-License-Identifier: GPL-2.0-or-later
// Every form in QGIS: reachable by keyboard, named for screen readers, nothing cut.
#include <gtest/gtest.h>
#include <qgisinterface.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QTimer>

#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

QString Named(const QWidget* widget) {
  return widget->window()->objectName() + QLatin1Char('.') + widget->objectName();
}

bool IsControl(const QWidget* widget) {
  return widget->isVisible() && !widget->objectName().isEmpty() &&
         !widget->objectName().startsWith(QLatin1String("qt_"));
}

QString Plain(QString text) { return text.remove(QLatin1Char('&')); }

void ExpectNotCut(const QWidget* widget) {
  const QFontMetrics metrics(widget->font());
  const std::string name = Named(widget).toStdString();
  const auto* label = qobject_cast<const QLabel*>(widget);
  if (label && !label->text().isEmpty()) {
    const QRect needed =
        metrics.boundingRect(QRect(0, 0, label->width(), 9999), Qt::TextWordWrap, label->text());
    EXPECT_LE(needed.height(), label->height()) << name;
    EXPECT_LE(needed.width(), label->width()) << name;
  } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
    EXPECT_LE(metrics.horizontalAdvance(Plain(button->text())), button->width() - 6) << name;
    EXPECT_LE(button->iconSize().height() * !button->icon().isNull(), button->height()) << name;
  } else if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) {
    EXPECT_LE(metrics.horizontalAdvance(Plain(frame->title())), frame->width() - 8) << name;
  }
  EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << name << " is outside";
}

/// The controls that Tab comes by, until it is where it began.
QSet<QWidget*> ReachedByTab(QWidget* window) {
  QSet<QWidget*> reached;
  for (int i = 0; i < 100; ++i) {
    QWidget* focused = window->focusWidget();
    if (!focused || reached.contains(focused)) break;
    reached << focused;
    QTest::keyClick(focused, Qt::Key_Tab);
  }
  return reached;
}

/// Options of a group are one stop: the arrow keys walk from one to the next.
bool NeighbourReached(QWidget* option, const QSet<QWidget*>& reached) {
  if (!qobject_cast<QRadioButton*>(option)) return false;
  for (QWidget* other : reached) {
    if (qobject_cast<QRadioButton*>(other) && other->parent() == option->parent()) return true;
  }
  return false;
}

void Walk(QWidget* window) {
  TakePicture(window->objectName());
  QList<QWidget*> stops;
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (!IsControl(widget)) continue;
    ExpectNotCut(widget);
    if (!widget->isEnabled() || widget->focusPolicy() == Qt::NoFocus) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << Named(widget).toStdString();
    // A box behind another is no place to go to.
    if (widget->objectName() != QLatin1String("txtBackground")) stops << widget;
  }
  const QSet<QWidget*> reached = ReachedByTab(window);
  for (QWidget* stop : stops) {
    EXPECT_TRUE(reached.contains(stop) || NeighbourReached(stop, reached))
        << Named(stop).toStdString() << " is out of Tab's way";
  }
}

struct FormOf {
  const char* command;
  const char* form;
};

class Forms : public testing::TestWithParam<FormOf> {};

TEST_P(Forms, CanBeReadAndWalked) {
  OpenModule();
  Pick({Document()->FocusMap()->Layers({}, true)->Next()});
  auto* action =
      Access().iface->mainWindow()->findChild<QAction*>(QString::fromLatin1(GetParam().command));
  ASSERT_TRUE(WaitFor([&] { return action->isEnabled(); }));
  bool shown = false;
  QTimer::singleShot(0, [&] {
    QWidget* window = Window(QString::fromLatin1(GetParam().form));
    shown = window != nullptr;
    if (!window) return;
    QTest::qWait(100);
    Walk(window);
    window->close();
  });
  action->trigger();
  EXPECT_TRUE(WaitFor([&] { return shown; }));
}

INSTANTIATE_TEST_SUITE_P(FormsOf, Forms,
                         testing::Values(FormOf{"cmdStats", "brelmon_ThemeIDDialog"},
                                         FormOf{"cmdSelByAttBrelmon", "brelmon_ModQueryDialog"},
                                         FormOf{"cmdSumBrelmon", "frm_Brelmon_Summarize"},
                                         FormOf{"cmdQuickLoad", "brelmon_QuickJumpDialog"},
                                         FormOf{"cmdMediaViewer", "brelmon_MediaDialog"},
                                         FormOf{"cmdQLAddSpatial", "frm_InputSpatialBookmark"},
                                         FormOf{"cmdQLAddQuery", "frm_InputQuery"},
                                         FormOf{"cmdQLDelete", "frm_QLDelete"},
                                         FormOf{"cmdAbout", "frmAbout"}),
                         [](const auto& test) { return std::string(test.param.command); });

}  // namespace
}  // namespace brelmon::qgis::test
