// SPDX-License-Identifier: GPL-2.0-or-later
// A query typed by hand in QGIS, and what is said of a bad one.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

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
    EXPECT_TRUE(WaitFor([&] { return query->hasFocus(); }));
    QTest::keyClicks(query, QStringLiteral(" >= 5.5"));
    EXPECT_EQ(query->toPlainText(), QStringLiteral("( \"MAG\" >= 5.5 )"));
    Click(Control<QPushButton>(dialog, "cmdAnd"));
    EXPECT_NE(query->toPlainText(), QStringLiteral("( \"MAG\" >= 5.5 )"));
    QTest::keyClick(query, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(query->toPlainText(), QStringLiteral("( \"MAG\" >= 5.5 )")) << "undone";
    QTest::keyClick(query, Qt::Key_End);
    QTest::keyClick(query, Qt::Key_Left);
    QTest::keyClick(query, Qt::Key_Left);
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

}  // namespace
}  // namespace brelmon::qgis::test
