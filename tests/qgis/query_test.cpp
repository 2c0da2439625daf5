// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog in QGIS, by clicks: a query grows, selects, filters, comes from the shortcuts.
#include <gtest/gtest.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

const auto kForm = QStringLiteral("brelmon_ModQueryDialog");
const auto kDeepAndStrong = QStringLiteral("( \"DEPTH_KM\" > 300) AND ( \"MAG\" > 5 )");

QgsVectorLayer& Quakes() {
  return *qobject_cast<QgsVectorLayer*>(
      QgsProject::instance()->mapLayersByName(QStringLiteral("quakes")).value(0));
}

/// Opens the dialog on the quakes, runs `script` in it and closes it by its button.
void InDialog(const std::function<void(QWidget*)>& script) {
  Pick({LayerCalled(u"quakes")});
  ClickAndDo("cmdSelByAttBrelmon", kForm, [&](QWidget* dialog) {
    script(dialog);
    Click(Control<QPushButton>(dialog, "cmdCancel"));
  });
}

/// Waits for the row, since lists show new rows only when a click is over.
void DoubleClick(QWidget* dialog, const char* list, const QString& text) {
  auto* view = Control<QListView>(dialog, list);
  QModelIndex row;
  ASSERT_TRUE(WaitFor([&] {
    row = view->model()
              ->match(view->model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly)
              .value(0);
    return row.isValid();
  })) << "no row "
      << text.toStdString() << " in " << list << " of " << view->model()->rowCount();
  ClickRow(view, row.row());
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(row).center());
}

/// The class example: two fields, three operators, one number typed and one from the values.
void Build(QWidget* dialog) {
  auto* query = Control<QPlainTextEdit>(dialog, "txtQuery");
  Click(Control<QPushButton>(dialog, "cmdClearQuery"));
  DoubleClick(dialog, "lbxFields", QStringLiteral("DEPTH_KM"));
  Click(Control<QPushButton>(dialog, "cmdGreater"));
  QTest::keyClicks(query, QStringLiteral("300"));
  Click(Control<QPushButton>(dialog, "cmdAnd"));
  DoubleClick(dialog, "lbxFields", QStringLiteral("MAG"));
  Click(Control<QPushButton>(dialog, "cmdGreater"));
  EXPECT_EQ(Control<QListView>(dialog, "lbxValues")->model()->rowCount(), 0);
  auto* update = Control<QPushButton>(dialog, "cmdUpdate");
  EXPECT_TRUE(WaitFor([&] { return update->isEnabled(); }));
  Click(update);
  DoubleClick(dialog, "lbxValues", QStringLiteral("5"));
  if (query->toPlainText() != kDeepAndStrong) {
    throw std::runtime_error(query->toPlainText().toStdString());
  }
  EXPECT_EQ(query->textCursor().position(), kDeepAndStrong.size() - 2);
}

QString Count(QWidget* dialog) { return Control<QLabel>(dialog, "lblNumSelected")->text(); }

/// Compares with the count line of the same query on the command line, if there is one to ask.
void ExpectCountOfCommandLine(const QString& count, const QStringList& options) {
  if (!qEnvironmentVariableIsSet("BRELMON_CLI")) return;
  QProcess process;
  process.start(qEnvironmentVariable("BRELMON_CLI"),
                QStringList{QgsProject::instance()->fileName(), QStringLiteral("query"),
                            QStringLiteral("quakes"), kDeepAndStrong} +
                    options);
  EXPECT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.readAllStandardOutput().trimmed().toStdString(), count.toStdString());
}

TEST(Query, ClassExampleByClicksSelects) {
  OpenModule();
  InDialog([](QWidget* dialog) {
    Build(dialog);
    TakePicture(QStringLiteral("query"), dialog);
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    EXPECT_TRUE(WaitFor([&] { return Quakes().selectedFeatureCount() > 0; }));
    EXPECT_TRUE(WaitFor([&] {
      return Count(dialog) == QStringLiteral("Number of features highlighted = %1")
                                  .arg(Quakes().selectedFeatureCount());
    })) << Count(dialog).toStdString();
    TakePicture(QStringLiteral("query_count"));
    ExpectCountOfCommandLine(Count(dialog), {QStringLiteral("--new")});
  });
  for (const QgsFeature& quake : Quakes().selectedFeatures()) {
    EXPECT_GT(quake.attribute(QStringLiteral("DEPTH_KM")).toDouble(), 300);
    EXPECT_GT(quake.attribute(QStringLiteral("MAG")).toDouble(), 5);
  }
}

TEST(Query, FilterShowsTheSameRowsAndKeepsTheSelection) {
  OpenModule();
  const long long all = Quakes().featureCount();
  QgsFeatureIds selected;
  InDialog([&](QWidget* dialog) {
    Build(dialog);
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    selected = Quakes().selectedFeatureIds();
    ClickOption(dialog, "optFiltered");
    EXPECT_FALSE(Control<QPushButton>(dialog, "cmdSubtractFromSet")->isEnabled());
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    EXPECT_TRUE(WaitFor(
        [&] { return Control<QLineEdit>(dialog, "txtCurrentFilter")->text() == kDeepAndStrong; }));
    const auto shown = QStringLiteral("Number of features displayed = %1").arg(selected.size());
    EXPECT_TRUE(WaitFor([&] { return Count(dialog) == shown; })) << Count(dialog).toStdString();
    EXPECT_EQ(Quakes().selectedFeatureIds(), selected);
    ExpectCountOfCommandLine(shown, {QStringLiteral("--new"), QStringLiteral("--filter")});
    Click(Control<QPushButton>(dialog, "cmdClear"));
    EXPECT_TRUE(WaitFor([&] { return Quakes().featureCount() == all; }));
    ClickOption(dialog, "optSelected");
  });
  EXPECT_FALSE(selected.isEmpty());
  EXPECT_EQ(Quakes().selectedFeatureIds(), selected);
}

TEST(Query, SavedQueryComesFromTheShortcuts) {
  OpenModule();
  InDialog([](QWidget* dialog) {
    auto* query = Control<QPlainTextEdit>(dialog, "txtQuery");
    auto* load = Control<QPushButton>(dialog, "cmdLoadQJQuery");
    ClickAndDo(load, QStringLiteral("brelmon_QuickJumpDialog"), [](QWidget* shortcuts) {
      EXPECT_TRUE(Control<QRadioButton>(shortcuts, "optQueries")->isChecked());
      EXPECT_FALSE(Control<QRadioButton>(shortcuts, "optViews")->isEnabled());
      DoubleClick(shortcuts, "lbxList", QStringLiteral("Deep and strong quakes"));
    });
    EXPECT_TRUE(WaitFor([&] {
      return query->toPlainText() == QStringLiteral("\"DEPTH_KM\" > 300 AND \"MAG\" > 5");
    })) << query->toPlainText().toStdString();
    EXPECT_EQ(Quakes().selectedFeatureCount(), 0) << "loading runs nothing";
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    EXPECT_TRUE(WaitFor([&] { return Quakes().selectedFeatureCount() > 0; }));
  });
}

TEST(Query, LayerBeingEditedKeepsItsRows) {
  OpenModule();
  const long long all = Quakes().featureCount();
  ASSERT_TRUE(Quakes().startEditing());
  InDialog([](QWidget* dialog) {
    Build(dialog);
    ClickOption(dialog, "optFiltered");
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    QWidget* trail = Window(QStringLiteral("BrelmonErrorDialog"));
    ASSERT_TRUE(trail);
    const QString text = Control<QPlainTextEdit>(trail, "txtTrail")->toPlainText();
    EXPECT_TRUE(text.contains(QStringLiteral("'quakes' is being edited"))) << text.toStdString();
    trail->close();
    ClickOption(dialog, "optSelected");
    Click(Control<QPushButton>(dialog, "cmdNewSet"));
    EXPECT_TRUE(WaitFor([&] { return Quakes().selectedFeatureCount() > 0; })) << "it can select";
  });
  EXPECT_TRUE(Quakes().isEditable());
  EXPECT_EQ(Quakes().featureCount(), all);
  Quakes().rollBack();
}

}  // namespace
}  // namespace brelmon::qgis::test
