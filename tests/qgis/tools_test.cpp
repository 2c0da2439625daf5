// SPDX-License-Identifier: GPL-2.0-or-later
// Tools end to end in QGIS: queries, summaries, graphics, deletion, shortcuts.
#include <gtest/gtest.h>
#include <qgisinterface.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

Ref<ILayer> LayerCalled(const Text& name) {
  const auto layers = Document()->FocusMap()->Layers({}, true);
  Ref<ILayer> layer = layers->Next();
  while (layer && layer->Name() != name) layer = layers->Next();
  return layer;
}

std::int32_t SelectedIn(const Text& name) {
  return LayerCalled(name).As<ITableSelection>()->SelectionSet()->Count();
}

/// Answers the next message box by a click on one of its buttons.
void AnswerBox(QMessageBox::StandardButton answer, QString* text = nullptr) {
  QTimer::singleShot(0, [answer, text] {
    auto* box = qobject_cast<QMessageBox*>(Window(QStringLiteral("BrelmonMessageBox")));
    ASSERT_TRUE(box);
    if (text) *text = box->text();
    Click(box->button(answer));
  });
}

TEST(Tools, QueryTypedByHandSelectsThenFilters) {
  OpenModule();
  Pick({LayerCalled(u"quakes")});
  ClickAndDo("cmdSelByAttBrelmon", QStringLiteral("brelmon_ModQueryDialog"), [](QWidget* dialog) {
    auto* query = Control<QPlainTextEdit>(dialog, "txtQuery");
    EXPECT_EQ(query->toPlainText(), QStringLiteral("(  )"));
    EXPECT_EQ(query->textCursor().position(), 2);
    // A double click puts the field's token at the caret; the rest is typed.
    auto* fields = qobject_cast<QAbstractItemView*>(Control<QWidget>(dialog, "lbxFields"));
    const QRect first = fields->visualRect(fields->model()->index(0, 0));
    QTest::mouseDClick(fields->viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_EQ(query->toPlainText(), QStringLiteral("( \"MAG\" )"));
    EXPECT_TRUE(query->hasFocus());
    QTest::keyClicks(query, QStringLiteral(" >= 5.5"));
    EXPECT_EQ(query->toPlainText(), QStringLiteral("( \"MAG\" >= 5.5 )"));
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    auto* count = Control<QLabel>(dialog, "lblNumSelected");
    EXPECT_TRUE(WaitFor([&] { return count->text().endsWith(QStringLiteral("= 9")); }))
        << count->text().toStdString();
    QTest::keyClicks(query, QStringLiteral(" nonsense"));
    QString refusal;
    AnswerBox(QMessageBox::Ok, &refusal);
    Click(Control<QPushButton>(dialog, "cmdAddToSet"));
    EXPECT_TRUE(refusal.startsWith(QStringLiteral("Query didn't work!")));
    QTest::keyClick(query, Qt::Key_Escape);
  });
  EXPECT_EQ(SelectedIn(u"quakes"), 9);
}

TEST(Tools, SummaryBecomesATableOfTheMap) {
  OpenModule();
  Pick({LayerCalled(u"quakes")});
  const QString path = qEnvironmentVariable("BRELMON_TEST_MODULE") + QStringLiteral("/by_net.dbf");
  ClickAndDo("cmdSumBrelmon", QStringLiteral("frm_Brelmon_Summarize"), [&](QWidget* dialog) {
    auto* field = Control<QComboBox>(dialog, "cbxFieldName");
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("NET"));
    EXPECT_EQ(field->currentText(), QStringLiteral("NET"));
    auto* output = Control<QLineEdit>(dialog, "txtOutput");
    output->setFocus();
    output->selectAll();
    QTest::keyClicks(
        output, QStringLiteral("Z:") + QString(path).replace(QLatin1Char('/'), QLatin1Char('\\')));
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
  EXPECT_TRUE(QFile::exists(path));
  const auto tables = Document()->FocusMap().As<IStandaloneTableCollection>();
  ASSERT_EQ(tables->StandaloneTableCount(), 3);
  EXPECT_EQ(tables->StandaloneTable(0)->Name(), u"by_net");
  EXPECT_TRUE(WaitFor([] {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->inherits("QgsAttributeTableDialog")) return true;
    }
    return false;
  }));
}

TEST(Tools, GraphicsSelectWhatTheyTouch) {
  OpenModule();
  Pick({LayerCalled(u"countries")});
  SetGraphics({"POINT(10 51)", "LINESTRING(2 47, -3 40)"});
  Pick({});
  Pick({LayerCalled(u"countries")});  // asks again
  QToolButton* button = ToolButton("cmdSelByGraphic");
  ASSERT_TRUE(WaitFor([&] { return button->isEnabled(); }));
  Click(button);
  EXPECT_EQ(SelectedIn(u"countries"), 3);  // Germany, France, Spain
}

TEST(Tools, DeletionAsksFirst) {
  OpenModule();
  Pick({LayerCalled(u"storms"), LayerCalled(u"Volcanoes")});
  QToolButton* button = ToolButton("cmdDeleteSelLayers");
  ASSERT_TRUE(WaitFor([&] { return button->isEnabled(); }));
  QString question;
  AnswerBox(QMessageBox::Cancel, &question);
  Click(button);
  EXPECT_TRUE(question.contains(QStringLiteral("  --> Volcanoes")));
  EXPECT_TRUE(LayerCalled(u"storms"));
  AnswerBox(QMessageBox::Ok);
  Click(button);
  EXPECT_FALSE(LayerCalled(u"storms"));
  EXPECT_FALSE(LayerCalled(u"Volcanoes"));
}

TEST(Tools, QuickLoadShowsTheOtherFrame) {
  OpenModule();
  ClickAndDo("cmdQuickLoad", QStringLiteral("brelmon_QuickJumpDialog"), [](QWidget* dialog) {
    auto* list = qobject_cast<QAbstractItemView*>(Control<QWidget>(dialog, "lbxList"));
    const QRect second = list->visualRect(list->model()->index(1, 0));
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second.center());
  });
  EXPECT_EQ(Document()->FocusMap()->Name(), u"Weather and storms");
}

TEST(Tools, EditedLayerRefusesAFilterWithItsReason) {
  OpenModule();
  const auto quakes = LayerCalled(u"quakes");
  auto* layer = QgsProject::instance()->mapLayersByName(QStringLiteral("quakes")).value(0);
  auto* vector = qobject_cast<QgsVectorLayer*>(layer);
  ASSERT_TRUE(vector->startEditing());
  try {
    quakes.As<ITableDefinition>()->SetDefinitionExpression(u"\"MAG\" > 5");
    ADD_FAILURE() << "a layer that is being edited took a filter";
  } catch (const Failure& failure) {
    EXPECT_NE(failure.Number, failure::kRefused);
    EXPECT_NE(failure.Description.find(u"edited"), Text::npos);
  }
  vector->rollBack();
}

}  // namespace
}  // namespace brelmon::qgis::test
