// SPDX-License-Identifier: GPL-2.0-or-later
// What a click in QGIS may lose or leave behind: failures told in order, runs stopped, a project
// that was never saved, unsaved edits.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsproject.h>
#include <qgsstatusbar.h>
#include <qgsvectorlayer.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

const auto kStatistics = QStringLiteral("brelmon_ThemeIDDialog");
const auto kProgress = QStringLiteral("BrelmonProgress");
const auto kTrail = QStringLiteral("BrelmonErrorDialog");

QgsVectorLayer& Vector(const char* name) {
  return *qobject_cast<QgsVectorLayer*>(
      QgsProject::instance()->mapLayersByName(QString::fromLatin1(name)).value(0));
}

/// The error dialog's text; closes it.
QString ReadTrail() {
  QWidget* trail = Window(kTrail);
  if (!trail) return {};
  const QString text = Control<QPlainTextEdit>(trail, "txtTrail")->toPlainText();
  trail->close();
  return text;
}

/// Opens the statistics on the quakes, runs `script` and presses OK.
void Calculate(const std::function<void(QWidget*)>& script) {
  Pick({LayerCalled(u"quakes")});
  ClickAndDo("cmdStats", kStatistics, [&](QWidget* dialog) {
    script(dialog);
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
}

TEST(Turns, EveryWayToSelectRowsReachesTheReport) {
  OpenModule();
  const struct {
    const char* name;
    std::function<void(QListView*)> select;
  } rows[] = {
      {"Ctrl+A", [](QListView* list) { QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier); }},
      {"Shift+End", [](QListView* list) { QTest::keyClick(list, Qt::Key_End, Qt::ShiftModifier); }},
      {"Shift+click", [](QListView* list) { ClickRow(list, 2, Qt::ShiftModifier); }},
      {"drag",
       [](QListView* list) {
         const auto at = [&](int row) {
           return list->visualRect(list->model()->index(row, 0)).center();
         };
         QTest::mousePress(list->viewport(), Qt::LeftButton, {}, at(0));
         for (const int row : {1, 2}) {
           QMouseEvent move(QEvent::MouseMove, at(row), Qt::NoButton, Qt::LeftButton, {});
           QApplication::sendEvent(list->viewport(), &move);
         }
         QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at(2));
       }},
      {"selectAll()", [](QListView* list) { list->selectAll(); }},
  };
  for (const auto& [name, select] : rows) {
    int painted = 0;
    Calculate([&, &choose = select](QWidget* dialog) {
      auto* list = Control<QListView>(dialog, "lbxField");
      ClickRow(list, 0);
      choose(list);
      QTest::qWait(50);
      painted = list->selectionModel()->selectedRows().size();
    });
    QWidget* report = Window(QStringLiteral("frmReport"));
    ASSERT_TRUE(report) << name;
    EXPECT_GT(painted, 1) << name;
    EXPECT_EQ(Control<QPlainTextEdit>(report, "txtReport")
                  ->toPlainText()
                  .count(QStringLiteral("Statistics on Field")),
              painted)
        << name;
    report->close();
  }
}

TEST(Turns, DecimalPlacesBeyondTheListAreShownAsTyped) {
  OpenModule();
  for (const char* due : {"2", "7"}) {
    Calculate([&](QWidget* dialog) {
      auto* places = Control<QComboBox>(dialog, "cbxDecPlaces");
      EXPECT_EQ(places->currentText(), QString::fromLatin1(due));
      ClickRow(Control<QWidget>(dialog, "lbxField"), 0);
      places->lineEdit()->selectAll();
      QTest::keyClicks(places->lineEdit(), QStringLiteral("7"));
    });
    QWidget* report = Window(QStringLiteral("frmReport"));
    ASSERT_TRUE(report) << due;
    report->close();
  }
  Calculate([&](QWidget* dialog) {  // as others would find it
    Control<QComboBox>(dialog, "cbxDecPlaces")->setFocus();
    QTest::keyClick(Control<QComboBox>(dialog, "cbxDecPlaces"), Qt::Key_Home);
    QTest::keyClick(Control<QComboBox>(dialog, "cbxDecPlaces"), Qt::Key_Down);
    ClickRow(Control<QWidget>(dialog, "lbxField"), 0);
  });
  Window(QStringLiteral("frmReport"))->close();
}

TEST(Turns, TrailsOfOneClickAreReadInOrder) {
  OpenModule();
  const auto dialog = Access().services.objects->NewErrorDialog();
  const auto fail = [&](const char16_t* what) {
    dialog->SetText(what);
    dialog->SetVisible(true);
  };
  const auto shown = [] {
    return Control<QPlainTextEdit>(Window(kTrail), "txtTrail")->toPlainText();
  };
  Access().inTurn([&] {
    fail(u"the reason");
    Access().inTurn([&] { fail(u"what came of it"); });
  });
  EXPECT_TRUE(shown().startsWith(QStringLiteral("the reason\n"))) << shown().toStdString();
  EXPECT_TRUE(shown().endsWith(QStringLiteral("\nwhat came of it")));
  Access().inTurn([&] { fail(u"another click"); });
  EXPECT_EQ(ReadTrail(), QStringLiteral("another click"));
}

TEST(Turns, ADialogAboveATrailHasTheFocusAndBothTakeInput) {
  OpenModule();
  const auto trail = Access().services.objects->NewErrorDialog();
  trail->SetText(u"a trail");
  trail->SetVisible(true);
  QWidget* window = Window(kTrail);
  Pick({LayerCalled(u"quakes")});
  bool ran = false;
  Soon(kStatistics, [&](QWidget* dialog) {
    EXPECT_TRUE(WaitFor([&] { return dialog->isActiveWindow(); }));
    EXPECT_TRUE(TakesInput(window));
    EXPECT_TRUE(TakesInput(dialog));
    TakePicture(QStringLiteral("dialog_above_trail"));
    window->close();
    dialog->close();
    ran = true;
  });
  ClickForReal(ToolButton("cmdStats"));
  EXPECT_TRUE(WaitFor([&] { return ran; }));
}

TEST(Turns, AProjectNeverSavedIsToldOfAndNothingElse) {
  OpenModule();
  QgsProject::instance()->setDirty(false);
  Access().iface->newProject(false);
  for (const char* command : {"cmdQuickLoad", "cmdMediaViewer", "cmdQLAddSpatial", "cmdQLAddQuery",
                              "cmdQLAddLayer", "cmdQLDelete"}) {
    Push(command);
    EXPECT_FALSE(QApplication::activeModalWidget()) << command;
    const QString told = ReadTrail();
    EXPECT_TRUE(told.startsWith(QStringLiteral("The project was never saved")))
        << command << ": " << told.toStdString();
    EXPECT_EQ(told.count(QLatin1Char('\n')), 0) << command << ": " << told.toStdString();
  }
}

/// What is left of a run that did not come to its end.
void ExpectNothingLeft() {
  EXPECT_FALSE(Shown(QStringLiteral("frmReport")));
  EXPECT_FALSE(QApplication::overrideCursor());
  auto* progress = Access().iface->mainWindow()->findChild<QWidget*>(kProgress);
  EXPECT_FALSE(progress->isVisible());
}

TEST(Turns, ALongRunPaintsAndIsStoppedByEscape) {
  OpenModule();
  // A field that takes a while to work out.
  Vector("quakes").addExpressionField(
      QStringLiteral("array_length(generate_series(1, 30000 + $id))"),
      QgsField(QStringLiteral("SLOW"), QVariant::Double));
  QWidget* main = Access().iface->mainWindow();
  int seen = 0;  // turns of the event loop in the middle of the run
  Calculate([&](QWidget* dialog) {
    auto* fields = Control<QListView>(dialog, "lbxField");
    ClickRow(fields, fields->model()->rowCount() - 1);
    auto* looks = new QTimer(main);
    QObject::connect(looks, &QTimer::timeout, main, [&seen, main, looks] {
      auto* progress = main->findChild<QWidget*>(kProgress);
      if (!progress || !progress->isVisible() || ++seen < 3) return;
      looks->deleteLater();
      TakePicture(QStringLiteral("long_run"));
      QTest::keyClick(main->windowHandle(), Qt::Key_Escape);
    });
    looks->start(50);
  });
  EXPECT_GE(seen, 3);
  EXPECT_EQ(ReadTrail(), QStringLiteral("User interrupt occurred"));
  ExpectNothingLeft();
}

/// Presses Escape while the numbers of a field are worked out, which no run through the rows of a
/// table slows down: the one who paints the bar takes its time.
class EscapeAtTheNumbers : public QObject {
 public:
  EscapeAtTheNumbers() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    const auto* label = event->type() == QEvent::Paint ? qobject_cast<QLabel*>(object) : nullptr;
    if (!label || !label->text().startsWith(QLatin1String("Calculating")) || pressed) return false;
    pressed = true;
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < 1100;) continue;
    QApplication::postEvent(label->window(),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    return false;
  }
  bool pressed = false;
};

TEST(Turns, AStoppedRunLeavesTheReportBeforeItAsItIs) {
  OpenModule();
  const auto calculate = [] {
    Calculate([](QWidget* dialog) { ClickRow(Control<QWidget>(dialog, "lbxField"), 0); });
  };
  calculate();
  QWidget* report = Window(QStringLiteral("frmReport"));
  const QString before = Control<QPlainTextEdit>(report, "txtReport")->toPlainText();
  {
    const EscapeAtTheNumbers escape;
    calculate();
    EXPECT_TRUE(escape.pressed);
  }
  EXPECT_EQ(ReadTrail(), QStringLiteral("User interrupt occurred"));
  EXPECT_EQ(Control<QPlainTextEdit>(report, "txtReport")->toPlainText(), before);
  report->close();
  const EscapeAtTheNumbers escape;
  calculate();
  EXPECT_EQ(ReadTrail(), QStringLiteral("User interrupt occurred"));
  ExpectNothingLeft();
}

TEST(Turns, WhatIsStoppedStaysStopped) {
  OpenModule();
  Access().iface->newProject(false);
  Access().inTurn([] {
    const auto templates = Access().application->Templates();
    for (const std::function<void()>& call : std::vector<std::function<void()>>{
             [&] { templates->Item(0); },
             [] { Access().services.messageBox->Show(u"on it goes", 0, u""); },
             [] { Access().application->StatusBar()->HideProgressBar(); },
             [] { Access().application->StatusBar()->StepProgressBar(); }}) {
      contract::ExpectFailure(failure::kPathNotFound, call, "goes on");
    }
    throw Failure(failure::kTypeMismatch, u"", u"a consequence");
  });
  EXPECT_TRUE(ReadTrail().startsWith(QStringLiteral("The project was never saved")));
}

TEST(Turns, AFailedRunPutsBackBarAndPointer) {
  OpenModule();
  Vector("quakes").startEditing();
  QgsFeature first;
  Vector("quakes").getFeatures().nextFeature(first);
  Vector("quakes").changeAttributeValue(first.id(), Vector("quakes").fields().indexOf("MAG"),
                                        QVariant());
  Calculate([](QWidget* dialog) { ClickRow(Control<QWidget>(dialog, "lbxField"), 0); });
  const QString trail = ReadTrail();
  EXPECT_TRUE(trail.contains(QStringLiteral("Invalid use of Null"))) << trail.toStdString();
  EXPECT_TRUE(trail.endsWith(
      QStringLiteral("The value is empty: field MAG of \"quakes\", record %1.").arg(first.id())))
      << trail.toStdString();
  ExpectNothingLeft();
  Vector("quakes").rollBack();
}

TEST(Turns, DeletingALayerWithEditsAsksOnceAndEnds) {
  for (const auto answer : {QMessageBox::Cancel, QMessageBox::Discard}) {
    OpenModule();
    Pick({LayerCalled(u"quakes")});
    Push("OpenTable");
    QgsVectorLayer& quakes = Vector("quakes");
    quakes.startEditing();
    quakes.deleteFeature(*quakes.allFeatureIds().begin());
    int asked = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box || box->objectName() == QLatin1String("BrelmonMessageBox")) return;
      ++asked;
      Click(box->button(answer));
    });
    watch.start(300);
    AnswerBox(QMessageBox::Ok);
    Push("cmdDeleteSelLayers");
    QTest::qWait(700);
    EXPECT_EQ(asked, 1);
    if (answer == QMessageBox::Cancel) {
      EXPECT_FALSE(Shown(kTrail)) << "the user knows";
      EXPECT_TRUE(LayerCalled(u"quakes"));
      EXPECT_TRUE(quakes.isModified());
      quakes.rollBack();
    } else {
      EXPECT_FALSE(LayerCalled(u"quakes"));
    }
  }
}

}  // namespace
}  // namespace brelmon::qgis::test
