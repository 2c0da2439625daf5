// SPDX-License-Identifier: GPL-2.0-or-later
// Every form in QGIS: reachable by keyboard, named for screen readers, nothing cut.
#include <gtest/gtest.h>
#include <qgisinterface.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QRadioButton>
#include <QScreen>
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

/// How many pixels `change` takes away from a widget of that size: those of its text or picture.
int Painted(QWidget* widget, const QSize& size, const std::function<void(bool)>& show) {
  const QRect before = widget->geometry();
  widget->resize(size);
  const QImage with = widget->grab().toImage();
  show(false);
  const QImage without = widget->grab().toImage();
  show(true);
  widget->setGeometry(before);
  int count = 0;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) {
      const int contrast = std::abs(qGray(with.pixel(x, y)) - qGray(without.pixel(x, y)));
      count += contrast > 40;
    }
  }
  return count;
}

/// What is painted must be there in full at the size that the form gives.
void ExpectNotCut(QWidget* widget) {
  const std::string name = Named(widget).toStdString();
  const QSize size = widget->size();
  const auto same = [&](const QSize& larger, const std::function<void(bool)>& show) {
    const int here = Painted(widget, size, show), there = Painted(widget, larger, show);
    EXPECT_GE(here * 100, there * 95) << name << " is cut";
    return here;
  };
  auto* label = qobject_cast<QLabel*>(widget);
  auto* button = qobject_cast<QAbstractButton*>(widget);
  if (label && !label->text().isEmpty()) {
    const QString text = label->text();
    same(size + QSize(0, 80), [&](bool on) { label->setText(on ? text : QString()); });
  } else if (button && !button->text().isEmpty()) {
    const QString text = button->text();
    same(size + QSize(80, 40), [&](bool on) { button->setText(on ? text : QString()); });
  } else if (button && !button->icon().isNull()) {
    const QIcon icon = button->icon();
    const int ink =
        same(size + QSize(20, 20), [&](bool on) { button->setIcon(on ? icon : QIcon()); });
    EXPECT_TRUE(ink > 20 || !button->isEnabled()) << name << " can't be seen";
  }
  EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << name << " is outside";
}

/// A window that is larger than the screen scrolls to whatever has the focus.
void ExpectReachable(QWidget* widget) {
  const QRect screen = widget->screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(widget->window()->geometry())) << Named(widget).toStdString();
  if (!qobject_cast<QAbstractButton*>(widget)) return;
  EXPECT_EQ(widget->visibleRegion().boundingRect().size(), widget->size())
      << Named(widget).toStdString() << " is out of sight at the focus";
}

/// The controls that Tab comes by, until it is where it began.
QSet<QWidget*> ReachedByTab(QWidget* window) {
  QSet<QWidget*> reached;
  for (int i = 0; i < 100; ++i) {
    QWidget* focused = window->focusWidget();
    if (!focused || reached.contains(focused)) break;
    reached << focused;
    ExpectReachable(focused);
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
