// SPDX-License-Identifier: GPL-2.0-or-later
// The Summarize dialog in QGIS, by clicks: the table that it makes, and who else makes the same.
#include <gtest/gtest.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

const auto kForm = QStringLiteral("frm_Brelmon_Summarize");

QString InModule(const QString& file) {
  return qEnvironmentVariable("BRELMON_TEST_MODULE") + QLatin1Char('/') + file;
}

QgsVectorLayer* VectorLayer(const QString& name) {
  return qobject_cast<QgsVectorLayer*>(QgsProject::instance()->mapLayersByName(name).value(0));
}

void Choose(QWidget* dialog, const char* combo, const QString& text) {
  auto* box = Control<QComboBox>(dialog, combo);
  box->setFocus();
  QTest::keyClicks(box, text);
  EXPECT_EQ(box->currentText(), text);
}

/// Clicks the statistic of a field in the tree.
void Tick(QWidget* dialog, const QString& field, const QString& statistic) {
  auto* tree = Control<QTreeWidget>(dialog, "treeFields");
  ASSERT_TRUE(WaitFor([&] { return !tree->findItems(field, Qt::MatchExactly).isEmpty(); }))
      << field.toStdString();
  auto* parent = tree->findItems(field, Qt::MatchExactly).first();
  parent->setExpanded(true);
  int row = 0;
  while (row < parent->childCount() && parent->child(row)->text(0) != statistic) ++row;
  ASSERT_LT(row, parent->childCount()) << "no " << statistic.toStdString();
  tree->scrollToItem(parent->child(row));
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                    tree->visualItemRect(parent->child(row)).center());
}

void TypePath(QWidget* dialog, const QString& path) {
  auto* output = Control<QLineEdit>(dialog, "txtOutput");
  output->setFocus();
  output->selectAll();
  QTest::keyClicks(output, path);
}

/// All bytes but the date of the last change.
QByteArray Undated(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll().replace(1, 3, "");
}

/// The same summary on the command line; its bytes without their date.
QByteArray OnCommandLine(const char* statistics) {
  const QString path = InModule(QStringLiteral("command_line.dbf"));
  const QString words =
      QStringLiteral("%1 summarize quakes NET --output %2 %3")
          .arg(QgsProject::instance()->fileName(), path, QString::fromLatin1(statistics));
  EXPECT_EQ(QProcess::execute(qEnvironmentVariable("BRELMON_CLI"), words.split(QLatin1Char(' '))),
            0);
  return Undated(path);
}

TEST(Summary, QuakesByNetworkByClicks) {
  OpenModule();
  Pick({LayerCalled(u"quakes")});
  const QString path = InModule(QStringLiteral("by_network.dbf"));
  ClickAndDo("cmdSumBrelmon", kForm, [&](QWidget* dialog) {
    Choose(dialog, "cbxFieldName", QStringLiteral("NET"));
    Tick(dialog, QStringLiteral("MAG"), QStringLiteral("Maximum"));
    Tick(dialog, QStringLiteral("MAG"), QStringLiteral("Average"));
    TakePicture(QStringLiteral("summarize"), dialog);
    Tick(dialog, QStringLiteral("DAY"), QStringLiteral("Last"));
    Tick(dialog, QStringLiteral("Place"), QStringLiteral("First"));
    TypePath(dialog, path);
    EXPECT_FALSE(Control<QCheckBox>(dialog, "chkSumSelected")->isEnabled());
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
  QgsVectorLayer* table = VectorLayer(QStringLiteral("by_network"));
  ASSERT_TRUE(table) << "not in the map";
  EXPECT_EQ(table->fields().names().join(QLatin1Char(' ')).toStdString(),
            "Min_NET Cnt_NET Max_MAG Ave_MAG Min_PLACE Max_DAY");
  QWidget* window = nullptr;
  EXPECT_TRUE(WaitFor([&] {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->isVisible() && top->inherits("QgsAttributeTableDialog")) window = top;
    }
    return window != nullptr;
  }));
  TakePicture(QStringLiteral("summary_table"), window);
  if (!qEnvironmentVariableIsSet("BRELMON_CLI")) return;
  EXPECT_TRUE(Undated(path) == OnCommandLine("--stat Maximum:MAG --stat Average:MAG "
                                             "--stat First:PLACE --stat Last:DAY"));
}

TEST(Summary, TickedBoxTakesTheSelectedRowsAlone) {
  OpenModule();
  Pick({LayerCalled(u"quakes")});
  QgsVectorLayer* quakes = VectorLayer(QStringLiteral("quakes"));
  quakes->selectByExpression(QStringLiteral("\"MAG\" > 5"));
  const QString path = InModule(QStringLiteral("strong.dbf"));
  ClickAndDo("cmdSumBrelmon", kForm, [&](QWidget* dialog) {
    auto* selected = Control<QCheckBox>(dialog, "chkSumSelected");
    EXPECT_TRUE(selected->isChecked());
    for (const auto& [name, ticks] : {std::pair("lbl2", false), std::pair("lblSummarize", false),
                                      std::pair("frmGeneral", false), std::pair("", true)}) {
      Click(selected);
      EXPECT_FALSE(selected->isChecked());
      auto* at = *name ? Control<QWidget>(dialog, name) : selected->parentWidget();
      const QPoint ground = *name ? QPoint(6, 12) : QPoint(2, at->height() - 2);
      QTest::mouseClick(at, Qt::LeftButton, {}, ground);
      QTest::qWait(50);
      EXPECT_EQ(selected->isChecked(), ticks) << name;
      if (!ticks) Click(selected);
    }
    Choose(dialog, "cbxFieldName", QStringLiteral("NET"));
    TypePath(dialog, path);
    Click(Control<QPushButton>(dialog, "cmdOK"));
  });
  QgsVectorLayer* table = VectorLayer(QStringLiteral("strong"));
  ASSERT_TRUE(table);
  int records = 0;
  QgsFeatureIterator rows = table->getFeatures();
  for (QgsFeature row; rows.nextFeature(row);) records += row.attribute(1).toInt();
  EXPECT_EQ(records, quakes->selectedFeatureCount());
}

}  // namespace
}  // namespace brelmon::qgis::test
